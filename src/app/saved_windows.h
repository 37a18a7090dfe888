#pragma once

#include "core/report.h"
#include "platform/file_store.h"

#include <string>

namespace corvane {

/// Saves what a run opened into a folder that exists: the results window as "results.txt", UTF-8 with CR LF.
/// Only files of these names are replaced. On failure the reason names the file.
FileResult SaveWindows(const std::string& folder, const Report& report, FileStore& files);

} // namespace corvane
