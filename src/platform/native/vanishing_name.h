#pragma once

#include <string>

namespace corvane {

/// The name of a file that must not outlive its writer: it is unlinked with this object, and by
/// UnlinkVanishingNames as long as this object lives.
class VanishingName {
public:
    /// The name is noted; the caller makes the file. The path must not depend on the working folder changing.
    explicit VanishingName(std::string path);
    ~VanishingName();
    VanishingName(const VanishingName&) = delete;
    VanishingName& operator=(const VanishingName&) = delete;

    const std::string& Path() const { return name; }

private:
    std::string name;
    int slot;
};

/// Unlinks the names of all files that are being written. Safe in a signal handler.
void UnlinkVanishingNames() noexcept;

/// Lets SIGINT, SIGTERM and SIGHUP unlink these names before they end the program. A signal that is ignored,
/// as SIGHUP under nohup, or has a handler of its own is left alone.
void UnlinkVanishingNamesOnSignals();

} // namespace corvane
