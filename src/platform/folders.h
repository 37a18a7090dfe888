#pragma once

#include <string>

namespace corvane {

/// The user's own folders, without a separator at the end. They may not exist yet.
class Folders {
public:
    virtual ~Folders() = default;

    virtual std::string Documents() const = 0;
    virtual std::string Configuration() const = 0;

    /// Makes a folder and those above it; false where that cannot be done.
    virtual bool Make(const std::string& path) = 0;
};

} // namespace corvane
