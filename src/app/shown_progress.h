#pragma once

#include "platform/dialogs.h"
#include "platform/feedback.h"
#include "platform/progress.h"

#include <string>

namespace corvane {

/// Work that the user waits for: its stages go to the one progress line, its messages to the dialogs.
class ShownProgress : public Progress {
public:
    ShownProgress(Feedback& progressLine, Dialogs& messageDialogs)
        : feedback(progressLine), dialogs(messageDialogs) {}

    void ShowStage(const std::string& text) override { feedback.ShowProgress(text); }
    void ShowShare(double) override {}
    void Tell(MessageStyle style, const std::string& text, const std::string& title) override {
        dialogs.ShowMessage(style, text, title);
    }

private:
    Feedback& feedback;
    Dialogs& dialogs;
};

} // namespace corvane
