#include "desktop/theme.h"

#include "desktop/measures.h"
#include "pixels.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFocusFrame>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTableWidget>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

const QDBusConnection noBus("no bus");

/// A form with one control of each kind, in letters so large that some pixels are wholly covered.
struct Form : QWidget {
    Form() {
        setFont(QFont("Liberation Sans", 24));
        accent.setText("Calculate");
        MakeAccent(accent);
        button.setText("Save");
        off.setText("Clear");
        off.setEnabled(false);
        field.setText("1.5");
        label.setText("Label <a href='x'>link</a>");
        label.setTextFormat(Qt::RichText);
        box.setChecked(true);
        choices.addItems({"One", "Two"});
        slider.setOrientation(Qt::Horizontal);
        table.setRowCount(2);
        table.setColumnCount(2);
        auto* layout = new QVBoxLayout(this);
        for (QWidget* child : std::initializer_list<QWidget*>{&accent, &button, &off, &field, &label, &box,
                                                              &emptyBox, &radio, &choices, &slider, &table})
            layout->addWidget(child);
        show();
    }

    QPushButton accent, button, off;
    QLineEdit field;
    QLabel label;
    QCheckBox box, emptyBox;
    QRadioButton radio;
    QComboBox choices;
    QSlider slider;
    QTableWidget table;
};

class ThemeLook : public ::testing::TestWithParam<ThemeChoice> {
protected:
    ThemeLook() { theme.Choose(GetParam()); }
    const ThemeColours& colours = GetParam() == ThemeChoice::Dark ? DarkColours() : LightColours();
    Theme theme{noBus};
};

INSTANTIATE_TEST_SUITE_P(Themes, ThemeLook, ::testing::Values(ThemeChoice::Light, ThemeChoice::Dark));

TEST_P(ThemeLook, EveryMeaningIsSeenOnEachOfItsGrounds) {
    const bool dark = colours.dark;
    const struct {
        QColor colour;
        std::vector<QColor> grounds;
        double light, darkFigure;
    } meanings[] = {
        {colours.text, {colours.window, colours.base, colours.button}, 14.2, 10.2},
        {colours.text, {colours.selection}, 12.4, 8.8},
        {colours.quiet, {colours.window, colours.base, colours.button}, 5.2, 5.4},
        {colours.edge, {colours.window, colours.base, colours.button}, 3.2, 3.6},
        {colours.ring, {colours.window, colours.base, colours.button}, 6.5, 5.7},
        {colours.onAccent, {colours.accent}, 7.6, 7.6},
        {colours.excluded, {colours.base, colours.selection}, 4.5, 4.7},
        {colours.unreadable, {colours.base, colours.selection}, 4.9, 5.1},
        {colours.error, {colours.window, colours.base, colours.button}, 4.9, 5.2},
        {colours.warning, {colours.window, colours.base, colours.button}, 5.4, 7.3},
        {colours.changed.text, {colours.changed.ground}, 6.7, 6.9},
        {colours.best.text, {colours.best.ground}, 5.7, 7.0},
    };
    for (const auto& meaning : meanings)
        for (const QColor& ground : meaning.grounds)
            EXPECT_GE(Contrast(meaning.colour, ground), dark ? meaning.darkFigure : meaning.light)
                << meaning.colour.name().toStdString() << " on " << ground.name().toStdString();
}

TEST_P(ThemeLook, ControlsAreDrawnInTheColoursOfTheTheme) {
    Form form;
    const struct {
        QWidget* control;
        QColor fill, text, edge;
    } faces[] = {
        {&form.accent, colours.accent, colours.onAccent, colours.accentEdge},
        {&form.button, colours.button, colours.text, colours.edge},
        {&form.off, colours.button, colours.quiet, colours.line},
        {&form.field, colours.base, colours.text, colours.edge},
        {&form.choices, colours.button, colours.text, colours.edge},
        {&form.label, colours.window, colours.ring, {}},
        {&form.emptyBox, {}, colours.base, colours.edge},
        {&form.box, {}, colours.accent, colours.accentEdge},
        {&form.radio, {}, colours.base, colours.edge},
        {&form.slider, {}, colours.base, colours.edge},
    };
    form.slider.setFixedWidth(60);
    for (QWidget* indicator : std::initializer_list<QWidget*>{&form.box, &form.emptyBox, &form.radio})
        indicator->setFixedWidth(20);
    form.field.setFocus();
    for (const auto& face : faces) {
        const QImage picture = PictureOf(*face.control);
        SCOPED_TRACE(face.control->metaObject()->className());
        if (face.fill.isValid()) {
            EXPECT_EQ(GroundOf(picture).name(), face.fill.name());
        }
        EXPECT_GT(CountOf(picture, face.text), 4) << "text or inside " << face.text.name().toStdString();
        if (face.edge.isValid()) {
            EXPECT_GT(CountOf(picture, face.edge, face.control == &form.radio ? 40 : 0), 4)
                << "edge " << face.edge.name().toStdString();
        }
    }
    EXPECT_GT(CountOf(PictureOf(*form.table.viewport()), colours.line), 50);
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase), colours.base);
}

TEST_P(ThemeLook, TheFocusHasARing) {
    Form form;
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    const auto ring = [&] {
        QCoreApplication::processEvents();
        return CountOf(PictureOf(form), colours.ring);
    };
    const QRect field = form.field.geometry();
    form.field.setFocus();
    ASSERT_TRUE(form.field.hasFocus());
    QCoreApplication::processEvents();
    const QImage picture = PictureOf(form);
    // From the control outwards: its edge, a gap of one, two of the ring.
    const int y = field.center().y();
    EXPECT_EQ(picture.pixelColor(field.left() - 1, y), colours.window);
    EXPECT_EQ(picture.pixelColor(field.left() - 2, y), colours.ring);
    EXPECT_EQ(picture.pixelColor(field.left() - 3, y), colours.ring);
    EXPECT_EQ(picture.pixelColor(field.left() - 4, y), colours.window);

    form.setFocus();
    form.field.clearFocus();
    const int without = ring();
    for (QWidget* control :
         std::initializer_list<QWidget*>{&form.button, &form.box, &form.radio, &form.choices, &form.slider}) {
        control->setFocus(Qt::MouseFocusReason);
        EXPECT_GT(ring(), without + 60) << control->metaObject()->className();
    }
    form.table.setCurrentCell(1, 1);
    form.table.setFocus();
    const QRect cell = form.table.visualItemRect(form.table.item(1, 1)).isNull()
                           ? form.table.visualRect(form.table.model()->index(1, 1))
                           : QRect();
    EXPECT_EQ(PictureOf(*form.table.viewport()).pixelColor(cell.left() + 1, cell.center().y()), colours.ring);
    const int white = CountOf(PictureOf(form.accent), colours.onAccent);
    form.accent.setFocus();
    EXPECT_GT(CountOf(PictureOf(form.accent), colours.onAccent), white + 100);
    EXPECT_EQ(form.findChildren<QFocusFrame*>().size(), 1);

    // Where there is no room around a control the ring lies inside it.
    QWidget tight;
    QLineEdit filling(&tight);
    tight.resize(filling.sizeHint());
    filling.resize(tight.size());
    tight.show();
    tight.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&tight));
    filling.setFocus();
    const QImage inside = PictureOf(tight);
    for (const QPoint& side : {QPoint(1, tight.height() / 2), QPoint(tight.width() / 2, 1),
                               QPoint(tight.width() - 2, tight.height() / 2)})
        EXPECT_EQ(inside.pixelColor(side), colours.ring) << side.x() << " " << side.y();
}

TEST_P(ThemeLook, EverythingFollowsASwitch) {
    theme.Choose(colours.dark ? ThemeChoice::Light : ThemeChoice::Dark);
    Form form;
    QSignalSpy changed(&theme, &Theme::Changed);
    PictureOf(form);
    changed.clear();
    theme.Choose(GetParam());
    EXPECT_TRUE(changed.wait());
    EXPECT_EQ(&ColoursOf(form.palette()), &colours) << "before it is told";
    EXPECT_EQ(GroundOf(PictureOf(form.button)), colours.button);
    EXPECT_GT(CountOf(PictureOf(form.label), colours.ring), 4) << "links keep their colour by themselves";
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipText), colours.text);
}

TEST_P(ThemeLook, MeasuresGrowWithTheFont) {
    const QFont before = QApplication::font();
    for (const int points : {10, 20}) {
        QApplication::setFont(QFont("Liberation Sans", points));
        QPushButton button("Save");
        QCheckBox box("Tick");
        QLineEdit field;
        const int scale = points / 10;
        EXPECT_EQ(button.sizeHint().height(), controlHeight * scale);
        EXPECT_EQ(field.sizeHint().height(), controlHeight * scale);
        EXPECT_EQ(box.sizeHint().height(), tickRowHeight * scale);
    }
    QApplication::setFont(before);
}

/// The settings portal of a desktop, on a bus and a thread of its own.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(const QString& address) : bus(QDBusConnection::connectToBus(address, "portal")) {
        bus.registerService("org.freedesktop.portal.Desktop");
        bus.registerObject("/org/freedesktop/portal/desktop", this, QDBusConnection::ExportAllSlots);
    }
    ~Portal() override { QDBusConnection::disconnectFromBus("portal"); }

    void Tell(uint newScheme) {
        QDBusMessage message = QDBusMessage::createSignal(
            "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged");
        message << "org.freedesktop.appearance"
                << "color-scheme" << QVariant::fromValue(QDBusVariant(newScheme));
        bus.send(message);
    }

    uint scheme = 1;

public slots:
    QDBusVariant Read(const QString&, const QString&) {
        return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
    }

private:
    QDBusConnection bus;
};

TEST(ThemeOfTheDesktop, FollowsThePortalAndIsLightWithoutOne) {
    Theme alone(noBus);
    EXPECT_FALSE(alone.Colours().dark);

    QProcess daemon;
    daemon.start(DBUS_DAEMON, {"--session", "--nofork", "--print-address"});
    ASSERT_TRUE(daemon.waitForReadyRead());
    const QString address = QString::fromUtf8(daemon.readLine()).trimmed();
    QThread thread;
    Portal* portal = nullptr;
    QObject context;
    context.moveToThread(&thread);
    thread.start();
    QMetaObject::invokeMethod(
        &context, [&] { portal = new Portal(address); }, Qt::BlockingQueuedConnection);
    {
        Theme theme(QDBusConnection::connectToBus(address, "theme"));
        EXPECT_TRUE(theme.Colours().dark);
        QSignalSpy changed(&theme, &Theme::Changed);
        EXPECT_TRUE(changed.wait()) << "the first look";
        portal->Tell(2);
        EXPECT_TRUE(changed.wait());
        EXPECT_FALSE(theme.Colours().dark);
        EXPECT_EQ(QApplication::palette().color(QPalette::Window), LightColours().window);
        theme.Choose(ThemeChoice::Light);
        changed.clear();
        portal->Tell(1);
        EXPECT_FALSE(changed.wait(100)) << "the user's own choice holds";
    }
    QDBusConnection::disconnectFromBus("theme");
    QMetaObject::invokeMethod(
        &context, [&] { delete portal; }, Qt::BlockingQueuedConnection);
    thread.quit();
    thread.wait();
    daemon.kill();
    daemon.waitForFinished();
}

} // namespace
} // namespace corvane::testing

#include "theme_test.moc"
