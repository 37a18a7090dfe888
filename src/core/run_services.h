#pragma once

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/feedback.h"
#include "platform/file_store.h"
#include "platform/random.h"

#include <string>

namespace corvane {

/// The services that a run uses. They must outlive it.
struct RunServices {
    Dialogs& dialogs;
    Feedback& feedback;
    const Clock& clock;
    Random& random;
    FileStore& files;
    std::string residueFolder = {}; ///< Where residue files go; empty: none is written.
};

} // namespace corvane
