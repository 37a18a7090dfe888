#pragma once

#include "platform/folders.h"

namespace corvane {

/// The folders of the freedesktop.org standards: documents in CORVANE_DOCUMENTS where that is set, else where
/// the user's user-dirs.dirs says, else "Documents" in the home folder; configuration in XDG_CONFIG_HOME,
/// else ".config".
class NativeFolders : public Folders {
public:
    std::string Documents() const override;
    std::string Configuration() const override;
    bool Make(const std::string& path) override;
};

} // namespace corvane
