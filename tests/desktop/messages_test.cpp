#include "desktop/message_bar.h"
#include "desktop/notice.h"
#include "desktop/questions.h"
#include "desktop/theme.h"
#include "desktop/window_dialogs.h"
#include "pixels.h"

#include <QEnterEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

using namespace std::chrono_literals;

/// A window with a bar over a field that has the focus.
struct Panel : QWidget {
    Panel() {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&bar);
        layout->addWidget(&field);
        resize(600, 300);
        show();
        activateWindow();
        field.setFocus();
        QCoreApplication::processEvents();
    }
    void PressEscape() { QTest::keyClick(&field, Qt::Key_Escape); }
    Notice* Shown() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return findChild<Notice*>();
    }

    MessageBar bar;
    QLineEdit field;
};

struct MessageTest : ::testing::Test {
    Theme theme{QDBusConnection("no bus")};
};

TEST_F(MessageTest, TheNewestMessageHasTheBar) {
    Panel panel;
    QSignalSpy closed(&panel.bar, &MessageBar::Closed);
    EXPECT_EQ(panel.bar.Text(), "");
    std::vector<QString> done;
    const auto action = [&](const char* name) {
        return BarAction{name, [&done, name] { done.emplace_back(name); }};
    };
    panel.bar.ShowMessage(MessageKind::Information, "First",
                          {action("Undo"), action("Paste"), action("Never")});
    panel.bar.ShowMessage(MessageKind::Error, "oak.KOV <b>was</b> changed", {action("Load it")});
    EXPECT_EQ(panel.bar.Text(), "oak.KOV <b>was</b> changed");
    EXPECT_EQ(panel.bar.accessibleName(), "Error: oak.KOV <b>was</b> changed");
    EXPECT_EQ(closed.count(), 0);
    EXPECT_TRUE(panel.field.hasFocus());
    EXPECT_FALSE(panel.bar.findChild<QPushButton*>("messageAction1")->isVisible());
    EXPECT_GT(CountOf(PictureOf(panel.bar), theme.Colours().error), 50);
    theme.Choose(ThemeChoice::Dark);
    EXPECT_GT(CountOf(PictureOf(panel.bar), DarkColours().error), 50);

    panel.bar.findChild<QPushButton*>("messageAction0")->click();
    EXPECT_EQ(done, std::vector<QString>{"Load it"});
    EXPECT_FALSE(panel.bar.isVisible());
    panel.bar.ShowMessage(MessageKind::Warning, "Again");
    panel.bar.findChild<QToolButton*>("closeMessage")->click();
    EXPECT_FALSE(panel.bar.isVisible());
    panel.bar.ShowMessage(MessageKind::Warning, "Again");
    panel.PressEscape();
    EXPECT_FALSE(panel.bar.isVisible());
    EXPECT_EQ(closed.count(), 3);
    // An action may itself show the next message.
    panel.bar.ShowMessage(MessageKind::Warning, "1",
                          {{"Next", [&] { panel.bar.ShowMessage(MessageKind::Warning, "2"); }}});
    panel.bar.findChild<QPushButton*>("messageAction0")->click();
    EXPECT_EQ(panel.bar.Text(), "2");
}

TEST_F(MessageTest, ANoticeTakesNoFocusAndGoesByItself) {
    Panel panel;
    Notice* notice = Notice::Show(panel, MessageKind::Information, "Plot", "Information copied");
    EXPECT_TRUE(panel.field.hasFocus());
    EXPECT_TRUE(panel.rect().contains(notice->geometry()));
    panel.resize(300, 200);
    EXPECT_TRUE(panel.rect().contains(notice->geometry())) << "it stays inside the window";
    notice = Notice::Show(panel, MessageKind::Information, "", "Second", QPoint(295, 195));
    EXPECT_EQ(panel.Shown(), notice) << "one at a time";
    EXPECT_TRUE(panel.rect().contains(notice->geometry()));
    notice->StayFor(30ms);
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(notice, &enter);
    QTest::qWait(80);
    EXPECT_NE(panel.Shown(), nullptr) << "it stays under the pointer";
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(notice, &leave);
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel.Shown() == nullptr; }, 2000));

    // With a bar under it, Escape closes what came last.
    panel.bar.ShowMessage(MessageKind::Information, "Bar");
    Notice::Show(panel, MessageKind::Information, "", "Notice")->StayFor(0ms);
    panel.PressEscape();
    EXPECT_EQ(panel.Shown(), nullptr);
    EXPECT_TRUE(panel.bar.isVisible());
    panel.PressEscape();
    EXPECT_FALSE(panel.bar.isVisible());
    QTest::mouseClick(Notice::Show(panel, MessageKind::Error, "", "Click"), Qt::LeftButton);
    EXPECT_EQ(panel.Shown(), nullptr);
}

struct Answer {
    const char* name;
    std::function<void(QMessageBox&)> give;
    bool byDefault, expected;
};

TEST_F(MessageTest, QuestionsWaitForTheirAnswerAndNoIsTheWayOut) {
    MessageLog log;
    WindowDialogs dialogs(log);
    const auto key = [](Qt::Key pressed) {
        return [pressed](QMessageBox& sheet) { QTest::keyClick(&sheet, pressed); };
    };
    const Answer answers[] = {
        {"Enter, default yes", key(Qt::Key_Return), true, true},
        {"Enter, default no", key(Qt::Key_Return), false, false},
        {"Escape", key(Qt::Key_Escape), true, false},
        {"Yes", [](QMessageBox& sheet) { sheet.button(QMessageBox::Yes)->click(); }, false, true},
        {"closed", [](QMessageBox& sheet) { sheet.close(); }, true, false},
        {"its window goes", [](QMessageBox& sheet) { delete sheet.parentWidget(); }, true, false},
    };
    for (const Answer& answer : answers) {
        SCOPED_TRACE(answer.name);
        auto* window = new Panel;
        dialogs.SetWindow(window);
        bool seen = false, ticked = false;
        QTimer::singleShot(0, [&] {
            auto* sheet = window->findChild<QMessageBox*>();
            ASSERT_NE(sheet, nullptr);
            seen = true;
            EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
            EXPECT_EQ(sheet->text(), "Do you want clear the dataset?");
            EXPECT_FALSE(sheet->informativeText().isEmpty());
            QTimer::singleShot(0, [&ticked, sheet, &answer] {
                ticked = true; // the loop goes on meanwhile
                answer.give(*sheet);
            });
        });
        EXPECT_EQ(dialogs.AskYesNo("Do you want clear the dataset?", "", answer.byDefault), answer.expected);
        EXPECT_TRUE(seen && ticked);
        if (std::string_view(answer.name) != "its window goes")
            delete window;
    }
    EXPECT_EQ(EffectsOf("A question that nobody knows?"), "");

    Panel panel;
    int yes = 0;
    Ask(&panel, {"Go on?", "Corvane"}, [&](bool answer) { yes += answer ? 1 : 10; });
    panel.findChild<QMessageBox*>()->button(QMessageBox::Yes)->click();
    EXPECT_EQ(yes, 1);
}

TEST_F(MessageTest, MessagesAreKeptAndErrorsWaitToBeSeen) {
    MessageLog log;
    WindowDialogs dialogs(log);
    Panel panel;
    dialogs.SetWindow(&panel);
    dialogs.ShowMessage(MessageStyle::Information, "Information copied\r\nin the Clipboard", "Copy");
    ASSERT_NE(panel.Shown(), nullptr);
    EXPECT_EQ(panel.Shown()->Text(), "Information copied\nin the Clipboard");
    QTimer::singleShot(0, [&] {
        auto* sheet = panel.findChild<QMessageBox*>();
        ASSERT_NE(sheet, nullptr);
        EXPECT_EQ(sheet->icon(), QMessageBox::Critical);
        EXPECT_EQ(log.Messages().size(), 2) << "kept before it is answered";
        sheet->button(QMessageBox::Ok)->click();
    });
    dialogs.ShowMessage(MessageStyle::Critical, "No regression method", "");
    EXPECT_EQ(log.Messages().last().kind, MessageKind::Error);
    for (int i = 0; i < MessageLog::mostMessages; ++i)
        log.Keep(MessageKind::Warning, "", QString::number(i));
    EXPECT_EQ(log.Messages().size(), MessageLog::mostMessages);
    EXPECT_EQ(log.Messages().first().text, "0");
}

} // namespace
} // namespace corvane::testing
