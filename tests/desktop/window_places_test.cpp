#include "desktop/window_places.h"

#include "support/golden.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QSplitter>
#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

TEST(WindowPlaces, AreMovedOntoAScreen) {
    const QList<QRect> screens{{0, 0, 1920, 1040}, {1920, 0, 1280, 1024}};
    const struct {
        QRect kept, expected;
    } cases[] = {
        {{100, 100, 800, 600}, {100, 100, 800, 600}},
        {{1800, 100, 800, 600}, {1920, 100, 800, 600}},  // most of it is on the second
        {{5000, 4000, 800, 600}, {1120, 440, 800, 600}}, // its screen has gone
        {{-300, -50, 800, 600}, {0, 0, 800, 600}},
        {{50, 50, 4000, 3000}, {0, 0, 1920, 1040}},
    };
    for (const auto& one : cases)
        EXPECT_EQ(MovedIn(one.kept, screens), one.expected) << one.kept.left();
    EXPECT_EQ(MovedIn({5, 5, 9, 9}, {}), QRect(5, 5, 9, 9));
}

/// A window with what it remembers: a splitter and a dock.
struct Window : QMainWindow {
    Window() : splitter(new QSplitter), dock(new QDockWidget) {
        splitter->setObjectName("columns");
        splitter->addWidget(new QWidget);
        splitter->addWidget(new QWidget);
        setCentralWidget(splitter);
        dock->setObjectName("live");
        addDockWidget(Qt::BottomDockWidgetArea, dock);
    }
    QSplitter* splitter;
    QDockWidget* dock;
};

TEST(WindowPlaces, ComeBackForEachKind) {
    const TemporaryFolder folder;
    const QString file = WindowPlaces::DefaultFile(QString::fromStdString(folder.Path()));
    QList<int> sizes;
    {
        WindowPlaces places(file);
        Window window;
        places.Restore(window, "frmInfo", {500, 400});
        EXPECT_GE(window.width(), 500);
        window.show();
        window.move(40, 60);
        window.resize(520, 410);
        QCoreApplication::processEvents();
        window.splitter->setSizes({120, 390});
        sizes = window.splitter->sizes();
        window.dock->hide();
        places.Keep(window, "frmInfo");
        places.SetHabit("frmInfo", "folded", true);
    }
    WindowPlaces places(file);
    Window first, second, third, other;
    for (Window* window : {&first, &second, &third}) {
        places.Restore(*window, "frmInfo", {500, 400});
        window->show();
        EXPECT_EQ(window->size(), QSize(520, 410));
        EXPECT_EQ(window->splitter->sizes(), sizes);
        EXPECT_TRUE(window->dock->isHidden());
    }
    EXPECT_EQ(first.pos(), QPoint(40, 60));
    EXPECT_EQ(second.pos(), QPoint(64, 84));
    EXPECT_EQ(third.pos(), QPoint(88, 108));
    places.Restore(other, "frmPlot", {300, 200});
    EXPECT_FALSE(other.dock->isHidden());
    EXPECT_TRUE(places.Habit("frmInfo", "folded").toBool());
    EXPECT_EQ(places.Habit("frmPlot", "folded", 3).toInt(), 3);

    third.setWindowState(Qt::WindowMaximized);
    places.Keep(third, "frmInfo");
    places.Keep(first, "frmInfo");
    places.Keep(second, "frmInfo");
    places.Keep(third, "frmInfo");
    Window again;
    places.Restore(again, "frmInfo", {500, 400});
    EXPECT_TRUE(again.isMaximized());
}

TEST(WindowPlaces, ABrokenFileIsAsNone) {
    const TemporaryFolder folder;
    WriteBytes(folder / "windows.ini", "[frmMain]\nplace=@Rect(1 2 x\nmaximised=@@@\ndocks=\x01\xff\n[[[");
    WindowPlaces places(QString::fromStdString(folder / "windows.ini"));
    Window window;
    places.Restore(window, "frmMain", {400, 300});
    EXPECT_GE(window.width(), 400);
    EXPECT_FALSE(window.isMaximized());
    WindowPlaces unwritable("/proc/no/such/place.ini");
    unwritable.Restore(window, "frmMain", {400, 300});
    unwritable.Keep(window, "frmMain");
}

} // namespace
} // namespace corvane::testing
