#include "app/cell_edit.h"

#include "app/grid_actions.h"

namespace corvane {

void CellEdit::Change(const std::string& text, const Document::Work& work) {
    const GridPlace at = editor.current;
    const std::string where = PlaceName(document.Data().options, at);
    // All of an edit happens at the moment when it began, so that no pause divides its step.
    document.Change({text.empty() ? "Empty " + where : "Type " + Shortened(text) + " in " + where,
                     GridRange{at.row, at.row, at.column, at.column}, "edit " + std::to_string(count)},
                    work, began);
}

void CellEdit::Begin(GridPlace place, char32_t key) {
    editor.current = place;
    before = CellText(document.Data().cells.At(place.column, place.row));
    began = std::chrono::steady_clock::now();
    ++count;
    GridEditor opened = editor;
    Dataset typed = document.Data();
    MSHFlexGridEdit(typed, opened, key);
    Change(opened.text, [&](Dataset& dataset, SessionState&) { dataset = typed; });
    editor = opened;
}

void CellEdit::Take(const std::string& text) {
    if (!editor.visible)
        return;
    editor.text = text;
    if (text == CellText(document.Data().cells.At(editor.current.column, editor.current.row)))
        editor.visible = false;
    else
        Change(text, [&](Dataset& dataset, SessionState&) { TakeEditor(dataset, editor); });
    document.EndStep();
}

std::optional<std::string> CellEdit::Drop() {
    editor.visible = false;
    document.EndStep();
    if (before == CellText(document.Data().cells.At(editor.current.column, editor.current.row)))
        return std::nullopt;
    return before;
}

} // namespace corvane
