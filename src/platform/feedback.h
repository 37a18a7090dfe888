#pragma once

#include <string>

namespace corvane {

/// The one progress line that the user sees while something runs.
class Feedback {
public:
    virtual ~Feedback() = default;

    /// Shows a text and paints it at once.
    virtual void ShowProgress(const std::string& text) = 0;

    virtual void HideProgress() = 0;

    /// Sounds the system's beep, where there is one.
    virtual void Beep() = 0;
};

} // namespace corvane
