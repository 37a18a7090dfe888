#pragma once

#include "evaluation/calculate.h"
#include "platform/file_store.h"

#include <string>
#include <vector>

namespace corvane {

/// Saves a report in a folder that exists, UTF-8 with CR LF, and adds its name to `written`. A symbolic link
/// of that name is replaced itself. On failure the reason names the file.
FileResult SaveReport(const std::string& folder, const std::string& name, const Report& report,
                      FileStore& files, std::vector<std::string>& written);

/// Saves what a run opened into a folder that exists: the results window as "results.txt", every other window
/// under its own name, UTF-8 with CR LF, as SaveReport does. Only files of these names are replaced.
FileResult SaveWindows(const std::string& folder, const RunResult& result, FileStore& files,
                       std::vector<std::string>& written);

} // namespace corvane
