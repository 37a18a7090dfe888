#include "platform/native/terminal.h"

#include "core/format/console_text.h"

#include <algorithm>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>
#include <utility>

namespace corvane {
namespace {

void ToStandardError(const std::string& text) {
    std::cerr << text << std::flush;
}

} // namespace

void OpenStandardStreams() {
    // Opened for reading alone, a closed output stays one that cannot be written.
    for (const auto& [stream, mode] :
         {std::pair{STDIN_FILENO, O_RDONLY}, {STDOUT_FILENO, O_RDONLY}, {STDERR_FILENO, O_WRONLY}})
        if (::fcntl(stream, F_GETFD) == -1)
            ::open("/dev/null", mode); // takes the lowest free number, which is this one
}

void WriteErrorLine(std::string_view line) {
    static const bool onTerminal = ::isatty(STDERR_FILENO) == 1;
    ToStandardError((onTerminal ? ForTerminal(line) : std::string(line)) + '\n');
}

void WriteOutput(std::string_view text) {
    static const bool onTerminal = ::isatty(STDOUT_FILENO) == 1;
    if (onTerminal)
        std::cout << ForTerminal(text, "\n");
    else
        std::cout << text;
}

bool EndOutput() {
    return static_cast<bool>(std::cout.flush());
}

void TerminalDialogs::ShowMessage(MessageStyle, const std::string& text, const std::string& title) {
    TerminalFeedback().HideProgress();
    std::string line = text;
    for (std::size_t at = 0; (at = line.find("\r\n", at)) != std::string::npos;)
        line.replace(at, std::min(line.find_first_not_of("\r\n", at), line.size()) - at, "; ");
    WriteErrorLine(prefix + (title.empty() ? "" : title + ": ") + line);
}

bool TerminalDialogs::AskYesNo(const std::string&, const std::string&, bool byDefault) {
    return byDefault;
}

TerminalFeedback::TerminalFeedback() : onTerminal(::isatty(STDERR_FILENO) == 1) {}

void TerminalFeedback::ShowProgress(const std::string& text) {
    if (onTerminal)
        ToStandardError("\r\033[K" + ForTerminal(text));
}

void TerminalFeedback::HideProgress() {
    if (onTerminal)
        ToStandardError("\r\033[K");
}

} // namespace corvane
