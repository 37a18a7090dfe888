#pragma once

#include "evaluation/calculate.h"
#include "platform/file_store.h"

#include <string>

namespace corvane {

/// Saves a report under a path, UTF-8 with CR LF. On failure the reason names the file.
FileResult SaveReport(const std::string& path, const Report& report, FileStore& files);

/// Saves what a run opened into a folder that exists: the results window as "results.txt", every other window
/// under its own name, UTF-8 with CR LF. Only files of these names are replaced. On failure the reason names
/// the file.
FileResult SaveWindows(const std::string& folder, const RunResult& result, FileStore& files);

} // namespace corvane
