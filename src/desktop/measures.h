#pragma once

namespace corvane {

// Lengths in px at 96 dpi and a font of 10 pt. Space goes in steps of four.
inline constexpr int labelToField = 4, betweenControls = 8, insideGroup = 12, betweenGroups = 16;
inline constexpr int controlHeight = 28, tickRowHeight = 24, widestColumn = 420;
inline constexpr int cornerRadius = 4, indicatorSize = 16, smallIcon = 16, toolIcon = 24;

/// A length at the font of the application: it grows with the font and never shrinks.
int Scaled(int length);

} // namespace corvane
