#pragma once

#include "platform/file_store.h"
#include "platform/settings.h"

#include <map>
#include <optional>
#include <string>

namespace corvane {

/// Settings in one small file an application, "<folder>/<application>.conf": "[section]" lines, "name=value"
/// lines and a last line that says that the file is whole. A file that is not is renamed and counts as
/// absent, so that nothing of it is lost. One that cannot be read at all, or not be renamed, is left alone.
class SettingsFile : public Settings {
public:
    SettingsFile(FileStore& fileStore, std::string configurationFolder)
        : files(fileStore), folder(std::move(configurationFolder)) {}

    Values Read(const std::string& application, const std::string& section, std::string& fault) override;
    FileResult Write(const std::string& application, const std::string& section,
                     const Values& values) override;

private:
    using Sections = std::map<std::string, Values>;

    /// Nothing, with a reason that names the file, where there is one that must be left alone.
    std::optional<Sections> ReadAll(const std::string& path, std::string& fault);

    FileStore& files;
    std::string folder;
};

} // namespace corvane
