#include "core/grid_editor.h"

#include "core/format/code_page.h"
#include "core/format/failure.h"

namespace corvane {

void MSHFlexGridEdit(Dataset& dataset, GridEditor& editor, char32_t keyAscii) {
    constexpr std::size_t behindTheText = 1000;
    const GridPlace at = editor.current;
    editor.caret = behindTheText;
    if (keyAscii > U' ') {
        std::string typed;
        AppendUtf8(typed, keyAscii);
        dataset.cells.Set(at.column, at.row, std::string_view(typed));
        editor.caret = 1;
    }
    editor.text = CellText(dataset.cells.At(at.column, at.row));
    editor.visible = true;
}

void EditKeyCode(Dataset& dataset, GridEditor& editor, int keyCode) {
    switch (keyCode) {
    case KeyEnter:
    case KeyDown:
        TakeEditor(dataset, editor);
        if (editor.current.row < dataset.cells.RowCount())
            ++editor.current.row;
        break;
    case KeyUp:
        TakeEditor(dataset, editor);
        if (editor.current.row > 1)
            --editor.current.row;
        break;
    case KeyEscape:
        editor.visible = false;
        break;
    default:
        break;
    }
}

void TakeEditor(Dataset& dataset, GridEditor& editor) {
    if (!editor.visible)
        return;
    dataset.cells.Set(editor.current.column, editor.current.row, std::string_view(editor.text));
    editor.visible = false;
}

std::int16_t Fgi(std::int32_t row, int column) {
    return Integer16(static_cast<double>(row) * (LastColumn + 1) + column);
}

} // namespace corvane
