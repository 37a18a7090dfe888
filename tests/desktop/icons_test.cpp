#include "desktop/icons.h"

#include "desktop/theme.h"
#include "pixels.h"

#include <QApplication>
#include <QSet>
#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

constexpr auto names =
    "open save save-as import export print printer-setup undo redo cut copy copy-table paste paste-table "
    "clear "
    "close remove-rows swap calculate cancel scatter ranks histogram random compare mail text-file about "
    "quit pin "
    "follow live pause filter find next previous up down add remove folder zoom-in zoom-out bold invert edit "
    "refresh run-r view delete check-all download stop excluded unreadable warning error info changed best "
    "fold";

/// The colour of the pixel that is covered most, and how much of the square has ink.
std::pair<QColor, double> InkOf(const QImage& picture) {
    QColor most = Qt::transparent;
    double ink = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            ink += pixel.alphaF();
            if (pixel.alpha() > most.alpha())
                most = pixel;
        }
    most.setAlpha(255);
    return {most, ink / (picture.width() * picture.height())};
}

bool Near(const QColor& one, const QColor& other) {
    return Distance(one, other) < 9;
}

TEST(Icons, EachIsThereInTheThemesColourAndUnlikeTheOthers) {
    Theme theme(QDBusConnection("no bus"));
    for (const auto choice : {ThemeChoice::Light, ThemeChoice::Dark}) {
        theme.Choose(choice);
        QCoreApplication::processEvents();
        QSet<QByteArray> seen;
        for (const QString& name : QString(names).split(' ')) {
            SCOPED_TRACE(name.toStdString());
            const QIcon icon = ThemedIcon(name);
            for (const int side : {16, 24, 48}) {
                const QImage picture = icon.pixmap(side).toImage();
                ASSERT_EQ(picture.size(), QSize(side, side));
                const auto [colour, ink] = InkOf(picture);
                EXPECT_TRUE(Near(colour, theme.Colours().text)) << colour.name().toStdString();
                EXPECT_GT(ink, 0.04);
                EXPECT_LT(ink, 0.55);
                if (side == 16) {
                    QByteArray bytes(reinterpret_cast<const char*>(picture.constBits()),
                                     picture.sizeInBytes());
                    EXPECT_FALSE(seen.contains(bytes));
                    seen.insert(bytes);
                }
            }
            EXPECT_TRUE(Near(InkOf(icon.pixmap(24, QIcon::Disabled).toImage()).first, theme.Colours().quiet));
        }
    }
    const QIcon kept = ThemedIcon("save"), error = ColouredIcon("error", theme.Colours().error);
    EXPECT_TRUE(Near(InkOf(kept.pixmap(24).toImage()).first, DarkColours().text));
    theme.Choose(ThemeChoice::Light);
    EXPECT_TRUE(Near(InkOf(kept.pixmap(24).toImage()).first, LightColours().text)) << "one icon, switched";
    EXPECT_TRUE(Near(InkOf(error.pixmap(24).toImage()).first, DarkColours().error));
    EXPECT_EQ(kept.pixmap(QSize(24, 24), 2.0).size(), QSize(48, 48));
    EXPECT_TRUE(ThemedIcon("no such icon").isNull());
}

} // namespace
} // namespace corvane::testing
