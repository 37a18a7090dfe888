#include "desktop/theme_colours.h"

#include <utility>

namespace corvane {

const ThemeColours& LightColours() {
    static const ThemeColours colours{
        .dark = false,
        .window = "#f4f5f7",
        .base = "#ffffff",
        .button = "#eceef1",
        .text = "#1b1f24",
        .quiet = "#5c636b",
        .edge = "#7d848d",
        .line = "#d5d9de",
        .accent = "#1f4fa8",
        .onAccent = "#ffffff",
        .accentEdge = "#1f4fa8",
        .ring = "#1f4fa8",
        .selection = "#cfe0ff",
        .excluded = "#5c636b",
        .unreadable = "#b3261e",
        .error = "#b3261e",
        .warning = "#8a5300",
        .changed = {"#7a4b00", "#fff3d6"},
        .best = {"#1d6b34", "#e3f4e6"},
    };
    return colours;
}

const ThemeColours& DarkColours() {
    static const ThemeColours colours{
        .dark = true,
        .window = "#24272b",
        .base = "#1b1d20",
        .button = "#33373d",
        .text = "#eceef0",
        .quiet = "#a9b0b8",
        .edge = "#868e97",
        .line = "#3b4046",
        .accent = "#1f4fa8",
        .onAccent = "#ffffff",
        .accentEdge = "#8ab4ff",
        .ring = "#8ab4ff",
        .selection = "#23406f",
        .excluded = "#a9b0b8",
        .unreadable = "#ff9d94",
        .error = "#ff9d94",
        .warning = "#ffbf5f",
        .changed = {"#ffc266", "#4a3a14"},
        .best = {"#7ddb95", "#1f3d27"},
    };
    return colours;
}

const ThemeColours& ColoursOf(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness()
               ? DarkColours()
               : LightColours();
}

QPalette PaletteOf(const ThemeColours& colours) {
    QPalette palette;
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, colours.window},
        {QPalette::WindowText, colours.text},
        {QPalette::Base, colours.base},
        {QPalette::AlternateBase, colours.window},
        {QPalette::Text, colours.text},
        {QPalette::PlaceholderText, colours.quiet},
        {QPalette::Button, colours.button},
        {QPalette::ButtonText, colours.text},
        {QPalette::BrightText, colours.error},
        {QPalette::Highlight, colours.selection},
        {QPalette::HighlightedText, colours.text},
        {QPalette::Link, colours.ring},
        {QPalette::LinkVisited, colours.ring},
        {QPalette::ToolTipBase, colours.base},
        {QPalette::ToolTipText, colours.text},
        {QPalette::Light, colours.base},
        {QPalette::Midlight, colours.button},
        {QPalette::Mid, colours.line},
        {QPalette::Dark, colours.edge},
        {QPalette::Shadow, colours.edge},
    };
    for (const auto& [role, colour] : roles)
        palette.setColor(role, colour);
    // Left alone, the style's disabled text has 1.6 : 1.
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::HighlightedText, QPalette::ToolTipText})
        palette.setColor(QPalette::Disabled, role, colours.quiet);
    return palette;
}

} // namespace corvane
