#pragma once

#include "platform/dialogs.h"
#include "platform/feedback.h"

#include <string>

namespace corvane {

/// Messages on standard error, each a line that begins with a prefix; questions take their default.
class TerminalDialogs : public Dialogs {
public:
    explicit TerminalDialogs(std::string linePrefix) : prefix(std::move(linePrefix)) {}

    void ShowMessage(MessageStyle style, const std::string& text, const std::string& title) override;
    bool AskYesNo(const std::string& text, const std::string& title, bool byDefault) override;

private:
    std::string prefix;
};

/// The progress line on standard error when that is a terminal, and nothing in a pipe or a file.
class TerminalFeedback : public Feedback {
public:
    TerminalFeedback();

    void ShowProgress(const std::string& text) override;
    void HideProgress() override;
    void Beep() override {}

private:
    bool onTerminal;
};

} // namespace corvane
