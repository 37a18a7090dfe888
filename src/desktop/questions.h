#pragma once

#include <QPointer>
#include <QString>
#include <functional>

class QMessageBox;
class QWidget;

namespace corvane {

/// A question with Yes and No. No, Escape and closing its sheet change nothing.
struct Question {
    QString text, title;
    QString effects{};      ///< What each button will do, under the text.
    bool byDefault = false; ///< The button that Enter presses.
};

/// What the answers to one of the program's own questions do; empty for a text that is not known.
QString EffectsOf(const QString& text);

/// Shows a question as a sheet of a window and goes on at once; `answered` is called with the answer, and not
/// at all if the window goes first.
QMessageBox* Ask(QWidget* window, const Question& question, std::function<void(bool yes)> answered);

} // namespace corvane
