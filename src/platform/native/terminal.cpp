#include "platform/native/terminal.h"

#include <algorithm>
#include <iostream>
#include <unistd.h>

namespace corvane {

void TerminalDialogs::ShowMessage(MessageStyle, const std::string& text, const std::string& title) {
    TerminalFeedback().HideProgress();
    std::string line = text;
    for (std::size_t at = 0; (at = line.find("\r\n", at)) != std::string::npos;)
        line.replace(at, std::min(line.find_first_not_of("\r\n", at), line.size()) - at, "; ");
    std::cerr << prefix << (title.empty() ? "" : title + ": ") << line << '\n';
}

bool TerminalDialogs::AskYesNo(const std::string&, const std::string&, bool byDefault) {
    return byDefault;
}

TerminalFeedback::TerminalFeedback() : onTerminal(::isatty(STDERR_FILENO) == 1) {}

void TerminalFeedback::ShowProgress(const std::string& text) {
    if (onTerminal)
        std::cerr << "\r\033[K" << text << std::flush;
}

void TerminalFeedback::HideProgress() {
    if (onTerminal)
        std::cerr << "\r\033[K" << std::flush;
}

} // namespace corvane
