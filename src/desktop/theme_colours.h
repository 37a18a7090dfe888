#pragma once

#include <QColor>
#include <QPalette>

namespace corvane {

/// A colour of text or signs on a ground of its own.
struct Tint {
    QColor text, ground;
};

/// What colours mean in the windows. Each meaning also has a sign that is not a colour, for those who do not
/// see it; every colour of text has 4.5 : 1 and every edge 3 : 1 on all grounds where it is used.
struct ThemeColours {
    bool dark;
    QColor window, base, button; ///< The grounds.
    QColor text, quiet;          ///< Quiet: notes and whatever is disabled.
    QColor edge;                 ///< Of a control.
    QColor line;                 ///< Between the cells of a table, around a group.
    QColor accent, onAccent;     ///< Fill of the one button that does the window's work, and its text.
    QColor accentEdge;           ///< Around such a fill.
    QColor ring;                 ///< Of the focus, and links.
    QColor selection;            ///< Under `text`.
    QColor excluded;             ///< Other sign: the row number is struck through.
    QColor unreadable, error;    ///< A dotted underline; a round sign.
    QColor warning;              ///< A triangle.
    Tint changed;                ///< A bar of 3 px at the left.
    Tint best;                   ///< Semibold and a tick mark.
};

const ThemeColours& LightColours();
const ThemeColours& DarkColours();

/// The colours that go with a palette: a widget asks with its own while it paints, and again after each
/// QEvent::PaletteChange.
const ThemeColours& ColoursOf(const QPalette& palette);

QPalette PaletteOf(const ThemeColours& colours);

} // namespace corvane
