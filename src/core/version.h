#pragma once

#include <string>

namespace corvane {

inline constexpr int VersionMajor = CORVANE_VERSION_MAJOR;
inline constexpr int VersionMinor = CORVANE_VERSION_MINOR;
inline constexpr int VersionRevision = CORVANE_VERSION_PATCH;

/// "4.0.0".
inline std::string VersionText() {
    return std::to_string(VersionMajor) + "." + std::to_string(VersionMinor) + "." +
           std::to_string(VersionRevision);
}

} // namespace corvane
