#pragma once

#include "evaluation/calculate.h"
#include "platform/file_store.h"

#include <string>

namespace corvane {

/// Saves what a run opened into a folder that exists: the results window as "results.txt", every other window
/// under its own name, UTF-8 with CR LF. Only files of these names are replaced. On failure the reason names
/// the file.
FileResult SaveWindows(const std::string& folder, const RunResult& result, FileStore& files);

} // namespace corvane
