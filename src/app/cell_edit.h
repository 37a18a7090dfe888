#pragma once

#include "app/document.h"
#include "core/grid_editor.h"

#include <optional>
#include <string>

namespace corvane {

/// The editing of one cell after another in a document, each as one step of undo, however long the user
/// takes: the first character, which replaces the value at once, and what the editor holds when it is left.
class CellEdit {
public:
    explicit CellEdit(Document& editedDocument) : document(editedDocument) {}

    /// Opens the editor on a cell; a character above the blank begins a new value and is in the table at
    /// once.
    void Begin(GridPlace place, char32_t key);
    /// Takes a text into the cell and hides the editor. The text that the cell has changes nothing, also
    /// where it has it as a number.
    void Take(const std::string& text);
    /// Hides the editor. Returns the value that the first character has replaced for good, if there was one.
    std::optional<std::string> Drop();

    const GridEditor& Editor() const { return editor; }

private:
    void Change(const std::string& text, const Document::Work& work);

    Document& document;
    GridEditor editor;
    std::string before; ///< What the cell held.
    Document::Moment began{};
    unsigned long count = 0; ///< Of the edits so far.
};

} // namespace corvane
