#pragma once

#include "desktop/messages.h"
#include "platform/dialogs.h"

#include <QPointer>
#include <QWidget>

namespace corvane {

/// Messages and questions of the program in its windows.
///
/// The port's question has its answer when it returns, and the code that asks stands deep in loading, saving
/// and clearing, which command line and windows share. So a question here waits in an event loop of its own:
/// its sheet blocks the one window that it concerns, and all others, timers and runs go on. A window's own
/// code asks with `Ask` and a continuation instead, and needs no such loop.
class WindowDialogs : public Dialogs {
public:
    explicit WindowDialogs(MessageLog& messageLog) : log(messageLog) {}

    /// The window whose sheets the next ones are. Without one they are windows of their own.
    void SetWindow(QWidget* newWindow) { window = newWindow; }

    /// What merely informs is a notice and returns at once; an error is a sheet, and returns when it is
    /// closed.
    void ShowMessage(MessageStyle style, const std::string& text, const std::string& title) override;

    /// No where the window goes or the program ends before there is an answer.
    bool AskYesNo(const std::string& text, const std::string& title, bool byDefault) override;

private:
    MessageLog& log;
    QPointer<QWidget> window;
};

} // namespace corvane
