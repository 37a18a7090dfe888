#include "app/saved_windows.h"

namespace corvane {

FileResult SaveWindows(const std::string& folder, const Report& report, FileStore& files) {
    const std::string path = folder + "/results.txt";
    FileResult saved = files.Replace(path, report.Text());
    if (!saved.done)
        saved.reason = path + ": " + saved.reason;
    return saved;
}

} // namespace corvane
