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

    /// What a section holds; nothing where it has never been written or cannot be read.
    virtual Values Read(const std::string& application, const std::string& section) = 0;

    /// Puts values into a section and keeps its other ones.
    virtual FileResult Write(const std::string& application, const std::string& section,
                             const Values& values) = 0;
};

} // namespace corvane
