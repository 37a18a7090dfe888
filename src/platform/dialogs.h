#pragma once

#include <string>

namespace corvane {

enum class MessageStyle { Information, Critical };

/// Message boxes and questions. A window shows them; without one they go to standard error.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Shows a message and returns when it was seen.
    virtual void ShowMessage(MessageStyle style, const std::string& text, const std::string& title) = 0;

    /// Asks a yes/no question. Where nobody can answer, the result is `byDefault`.
    virtual bool AskYesNo(const std::string& text, const std::string& title, bool byDefault) = 0;
};

} // namespace corvane
