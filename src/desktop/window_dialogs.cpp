#include "desktop/window_dialogs.h"

#include "desktop/notice.h"
#include "desktop/questions.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QMessageBox>

namespace corvane {
namespace {

/// Waits until a sheet has gone in whatever way.
void WaitFor(QMessageBox* sheet) {
    QEventLoop loop;
    QObject::connect(sheet, &QMessageBox::finished, &loop, &QEventLoop::quit);
    QObject::connect(sheet, &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
}

QString TitleOr(const std::string& title) {
    return title.empty() ? QCoreApplication::applicationName() : QString::fromStdString(title);
}

/// Texts come with the line ends of files.
QString Lines(const std::string& text) {
    return QString::fromStdString(text).replace("\r\n", "\n");
}

} // namespace

void WindowDialogs::ShowMessage(MessageStyle style, const std::string& text, const std::string& title) {
    const bool critical = style == MessageStyle::Critical;
    log.Keep(critical ? MessageKind::Error : MessageKind::Information, QString::fromStdString(title),
             Lines(text));
    if (!critical && window && window->isVisible()) {
        Notice::Show(*window, MessageKind::Information, QString::fromStdString(title), Lines(text));
        return;
    }
    auto* sheet = new QMessageBox(critical ? QMessageBox::Critical : QMessageBox::Information, TitleOr(title),
                                  Lines(text), QMessageBox::Ok, window);
    sheet->setObjectName("message");
    sheet->setTextFormat(Qt::PlainText);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
    WaitFor(sheet);
}

bool WindowDialogs::AskYesNo(const std::string& text, const std::string& title, bool byDefault) {
    bool answer = false;
    const Question question{Lines(text), TitleOr(title), EffectsOf(Lines(text)), byDefault};
    QMessageBox* sheet = Ask(window, question, [&answer](bool yes) { answer = yes; });
    WaitFor(sheet);
    return answer;
}

} // namespace corvane
