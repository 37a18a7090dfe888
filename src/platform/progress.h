#pragma once

#include "platform/dialogs.h"

#include <string>

namespace corvane {

/// What work in the background tells while it goes on. Calls come from the thread that works, and must return
/// at once.
class Progress {
public:
    virtual ~Progress() = default;

    /// The stage that begins now, in words for the user.
    virtual void ShowStage(const std::string& text) = 0;

    /// How much of the whole is done, from 0 to 1.
    virtual void ShowShare(double share) = 0;

    /// Something that the user should know at once, under a title where it has one. Nobody waits until it was
    /// seen.
    virtual void Tell(MessageStyle style, const std::string& text, const std::string& title = {}) = 0;
};

} // namespace corvane
