#pragma once

#include "platform/dialogs.h"
#include "platform/feedback.h"

#include <string>
#include <string_view>

namespace corvane {

// Everything that the program writes on standard error and standard output goes through these routines, so
// that no text of a file or of the user's can steer the terminal that shows it.

/// Opens those of standard input, output and error that are closed, so that no file takes their place;
/// writing to standard output then fails.
void OpenStandardStreams();

/// Writes one message with its line end on standard error, in one write. Control characters and line ends in
/// it are written out (`ForTerminal`) where a terminal shows them; files and pipes get the very bytes.
void WriteErrorLine(std::string_view line);

/// Writes to standard output, in the same way; line feeds stay.
void WriteOutput(std::string_view text);

/// Flushes standard output; whether all that was written there has arrived.
bool EndOutput();

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
