#pragma once

#include "platform/file_store.h"

namespace corvane {

/// Files of the operating system.
class NativeFileStore : public FileStore {
public:
    /// A folder or an endless device is refused; a pipe is read to its end. What would take more than half of
    /// the machine's memory is refused as well.
    FileResult Read(const std::string& path, std::string& bytes) const override;

    /// Writes a new file beside the old one, flushes it to the disk and renames it; a symbolic link stays a
    /// link, an existing file keeps its owner, group and permissions as far as the process may, but no set-id
    /// bits; a folder, device or pipe is refused.
    FileResult Replace(const std::string& path, const std::string& bytes) override;

    FileResult ReplaceFrom(const std::string& path, const ByteSource& source) override;

    FileResult ReplaceEntry(const std::string& path, const ByteSource& source) override;

    FileResult Create(const std::string& path, const std::string& bytes) override;

    FileResult Remove(const std::string& path) override;
};

} // namespace corvane
