#include "platform/native/native_folders.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace corvane {
namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string Home() {
    if (std::string home = Variable("HOME"); !home.empty())
        return home;
    const passwd* user = ::getpwuid(::getuid());
    return user && user->pw_dir ? user->pw_dir : ".";
}

/// The documents folder of a line such as XDG_DOCUMENTS_DIR="$HOME/Dokumente"; empty where there is none.
std::string DocumentsOf(const std::string& userDirectories) {
    const std::string key = "XDG_DOCUMENTS_DIR=\"", home = "$HOME";
    std::ifstream file(userDirectories);
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(key) || !line.ends_with('"') || line.size() == key.size())
            continue;
        std::string path = line.substr(key.size(), line.size() - key.size() - 1);
        if (path.starts_with(home))
            return Home() + path.substr(home.size());
        if (path.starts_with('/'))
            return path;
    }
    return "";
}

} // namespace

std::string NativeFolders::Documents() const {
    if (std::string chosen = Variable("CORVANE_DOCUMENTS"); !chosen.empty())
        return chosen;
    std::string documents = DocumentsOf(Configuration() + "/user-dirs.dirs");
    while (documents.size() > 1 && documents.ends_with('/'))
        documents.pop_back();
    return documents.empty() ? Home() + "/Documents" : documents;
}

std::string NativeFolders::Configuration() const {
    // The standard wants an absolute path; any other is to be ignored.
    const std::string chosen = Variable("XDG_CONFIG_HOME");
    return chosen.starts_with('/') ? chosen : Home() + "/.config";
}

bool NativeFolders::Make(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return !error;
}

} // namespace corvane
