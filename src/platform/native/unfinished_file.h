#pragma once

#include "platform/native/descriptor.h"
#include "platform/native/vanishing_name.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace corvane {

/// A file that is being written in the folder where it shall be. It has no name until it is whole where the
/// system can do that, and otherwise one that vanishes. What fails returns false with the reason in errno.
class UnfinishedFile {
public:
    enum class Nameless { IfPossible, Never };

    /// Opens it; a folder that is "" is the working folder. Where a file without a name cannot be had, it
    /// gets one at once.
    UnfinishedFile(std::string folder, mode_t mode, Nameless nameless);

    bool IsOpen() const { return file.Valid(); }
    bool HasName() const { return own.has_value(); }

    bool Write(std::string_view bytes);

    /// Takes over the owner, group and permission bits of the file that it replaces, as far as the process
    /// may, and no set-id bits. The members of another group than that file's get what everyone else had.
    void TakeOver(const struct stat& replaced);

    /// Brings the bytes to the disk.
    bool Flush();

    /// Gives the whole file a name that must be free; errno is EEXIST where it is not.
    bool NameIt(const std::string& path);

    /// Puts the whole file in place of what has the name, a symbolic link included.
    bool TakePlaceOf(const std::string& path);

private:
    std::string OwnPath() const;
    bool LinkTo(const std::string& path) const;

    std::string inFolder;
    std::optional<VanishingName> own; ///< Outlives the open file.
    Descriptor file{-1};
};

} // namespace corvane
