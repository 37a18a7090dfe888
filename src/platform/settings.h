#pragma once

#include "platform/file_store.h"

#include <map>
#include <string>

namespace corvane {

/// The per-user settings of an application, texts under names, in sections.
class Settings {
public:
    virtual ~Settings() = default;

    using Values = std::map<std::string, std::string>;

    /// What a section holds; nothing where it has never been written or cannot be read. `fault` then says why
    /// not, unless what was there is no settings at all.
    virtual Values Read(const std::string& application, const std::string& section, std::string& fault) = 0;

    /// Puts values into a section and keeps its other ones; it fails where these cannot be read.
    virtual FileResult Write(const std::string& application, const std::string& section,
                             const Values& values) = 0;
};

} // namespace corvane
