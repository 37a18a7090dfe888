#include "app/saved_windows.h"

namespace corvane {
namespace {

FileResult SaveText(const std::string& path, const Report& report, FileStore& files) {
    FileResult saved = files.ReplaceFrom(path, [&](const auto& sink) { report.Write(sink, "\r\n"); });
    if (!saved.done)
        saved.reason = path + ": " + saved.reason;
    return saved;
}

} // namespace

FileResult SaveWindows(const std::string& folder, const RunResult& result, FileStore& files) {
    FileResult saved = SaveText(folder + "/results.txt", result.report, files);
    for (const RunWindow& window : result.windows)
        if (saved.done)
            saved = SaveText(folder + "/" + window.name + ".txt", window.content, files);
    return saved;
}

} // namespace corvane
