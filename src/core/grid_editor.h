#pragma once

#include "core/dataset.h"
#include "core/grid_clipboard.h"

#include <cstdint>
#include <string>

namespace corvane {

/// Keys that the editor acts on, by the codes that the grid's events carry.
enum EditKey : int { KeyEnter = 13, KeyEscape = 27, KeyUp = 38, KeyDown = 40 };

/// The in-place editor of the grid, without its painting: which cell is current, what the editor's text box
/// holds, and when its text goes into the table. A window draws the box while `visible` is set, writes what
/// the user types into `text`, and calls TakeEditor when the grid gets the focus or leaves a cell.
struct GridEditor {
    GridPlace current;
    bool visible = false;
    std::string text;
    std::size_t caret = 0; ///< Characters before the caret; beyond the text it is at its end.
};

/// Opens the editor on the current cell. A character above the blank begins a new value, which replaces the
/// cell's at once; any other key (a double click counts as the blank) edits the value that is there, which
/// is the table's unformatted one.
void MSHFlexGridEdit(Dataset& dataset, GridEditor& editor, char32_t keyAscii);

/// What a key does inside the editor: Enter and Down take the value and go a row down, Up takes it and goes a
/// row up, both within the data rows; Escape drops it. Other keys belong to the text box.
void EditKeyCode(Dataset& dataset, GridEditor& editor, int keyCode);

/// Takes the editor's text into the current cell, as text and without a test, and hides the editor. Nothing
/// happens while it is hidden.
void TakeEditor(Dataset& dataset, GridEditor& editor);

/// A cell's running number in the grid of eight columns. A RunFailure where it does not fit 16 bits.
std::int16_t Fgi(std::int32_t row, int column);

} // namespace corvane
