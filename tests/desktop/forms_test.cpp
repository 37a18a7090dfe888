#include "desktop/flow_layout.h"
#include "desktop/forms.h"
#include "desktop/measures.h"
#include "desktop/system_information.h"
#include "desktop/theme.h"
#include "pixels.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontInfo>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

TEST(Forms, LabelsKeepTheirRoleThroughFontsAndThemes) {
    Theme theme(QDBusConnection("no bus"));
    const QFont before = QApplication::font();
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* quiet = new RoleLabel(TextRole::Quiet, "plot shadow");
    auto* title = new RoleLabel(TextRole::GroupTitle, "Ranks");
    layout->addWidget(quiet);
    layout->addWidget(title);
    window.show();
    for (const double points : {10.0, 20.0, 7.0}) {
        QApplication::setFont(QFont("Liberation Sans", static_cast<int>(points)));
        QCoreApplication::processEvents();
        EXPECT_GE(QFontInfo(quiet->font()).pixelSize(), 11);
        if (points >= 10) {
            EXPECT_NEAR(quiet->font().pointSizeF(), 0.85 * points, 0.3);
        }
        EXPECT_EQ(title->font().weight(), QFont::DemiBold);
        EXPECT_NEAR(title->font().pointSizeF(), points, 0.01);
    }
    QApplication::setFont(before);
    for (const auto choice : {ThemeChoice::Dark, ThemeChoice::Light}) {
        theme.Choose(choice);
        QCoreApplication::processEvents();
        EXPECT_EQ(quiet->palette().color(QPalette::WindowText), theme.Colours().quiet);
        EXPECT_EQ(GroundOf(PictureOf(*quiet)), theme.Colours().window);
    }
    quiet->SetRole(TextRole::Error);
    EXPECT_EQ(quiet->palette().color(QPalette::WindowText), theme.Colours().error);
}

TEST(Forms, AGroupStaysNarrowAndScrollsOnlyUpAndDown) {
    Theme theme(QDBusConnection("no bus"));
    auto* group = new Group("Ranks");
    for (int i = 0; i < 30; ++i)
        group->Contents().addWidget(new QCheckBox(QStringLiteral("Calculate rank-scores of X, %1").arg(i)));
    group->SetReason("Tick <a href='Check23'>MSEP analysis</a> to use this");
    QString link;
    QObject::connect(group, &Group::LinkActivated, [&](const QString& clicked) { link = clicked; });
    auto* reason = group->findChild<QLabel*>("reason");
    emit reason->linkActivated("Check23");
    EXPECT_EQ(link, "Check23");
    VerticalScroll scroll(group);
    scroll.resize(1600, 300);
    scroll.show();
    EXPECT_EQ(group->width(), Scaled(widestColumn));
    EXPECT_GT(scroll.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(group->findChildren<QCheckBox*>()[1]->y() - group->findChildren<QCheckBox*>()[0]->y(),
              Scaled(tickRowHeight));
    scroll.resize(scroll.minimumSizeHint());
    EXPECT_GE(scroll.viewport()->width(), group->minimumSizeHint().width()) << "nothing is cut at the side";
    group->Contents().addWidget(new QPushButton(QString(80, 'W')));
    QCoreApplication::sendPostedEvents();
    EXPECT_GT(scroll.minimumSizeHint().width(), 400);
    group->SetReason("");
    EXPECT_TRUE(reason->isHidden());
}

TEST(FlowLayout, GoesOnInTheNextLineInBothDirections) {
    QWidget row;
    auto* flow = new FlowLayout(&row);
    QList<QPushButton*> buttons;
    for (int i = 0; i < 5; ++i) {
        buttons.append(new QPushButton("Button"));
        buttons.last()->setFixedSize(100, 28);
        flow->addWidget(buttons.last());
    }
    buttons[1]->hide();
    row.resize(320, 200);
    row.show();
    const int step = 100 + flow->spacing();
    EXPECT_EQ(buttons[2]->pos(), QPoint(step, 0)) << "a hidden one leaves no gap";
    EXPECT_EQ(buttons[4]->pos(), QPoint(0, 28 + flow->spacing()));
    EXPECT_EQ(flow->heightForWidth(320), 2 * 28 + flow->spacing());
    EXPECT_EQ(flow->heightForWidth(50), 4 * 28 + 3 * flow->spacing());
    EXPECT_EQ(flow->sizeHint(), QSize(4 * 100 + 3 * flow->spacing(), 28));
    row.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(buttons[0]->x(), 320 - 100);
}

TEST(SystemInformation, NamesTheProgramAndTheMachineButNotTheUser) {
    const QString text = SystemInformation();
    for (const char* part : {"Corvane: ", "Qt: 6.", "System: ", "Windows: offscreen", "Screen: "})
        EXPECT_TRUE(text.contains(part)) << part;
    EXPECT_FALSE(text.contains(qEnvironmentVariable("HOME", "/nowhere")));
    EXPECT_FALSE(text.contains(": \n"));
}

} // namespace
} // namespace corvane::testing
