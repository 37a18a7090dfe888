#include "app/saved_windows.h"

namespace corvane {

FileResult SaveReport(const std::string& folder, const std::string& name, const Report& report,
                      FileStore& files, std::vector<std::string>& written) {
    const std::string path = folder + "/" + name;
    FileResult saved = files.ReplaceEntry(path, [&](const auto& sink) { report.Write(sink, "\r\n"); });
    if (saved.done)
        written.push_back(name);
    else
        saved.reason = path + ": " + saved.reason;
    return saved;
}

FileResult SaveWindows(const std::string& folder, const RunResult& result, FileStore& files,
                       std::vector<std::string>& written) {
    FileResult saved = SaveReport(folder, "results.txt", result.report, files, written);
    for (const RunWindow& window : result.windows)
        if (saved.done)
            saved = SaveReport(folder, window.name + ".txt", window.content, files, written);
    return saved;
}

} // namespace corvane
