#pragma once

#include "app/grid_selection.h"
#include "core/grid_clipboard.h"
#include "core/grid_operations.h"

#include <string>
#include <string_view>

namespace corvane {

// What a user does to the table, each as one step of undo that says what and where. An action that changes
// nothing leaves no step.

/// A cell in the names of steps and messages, as "Y (Obs), row 7".
std::string PlaceName(const AnalysisOptions& options, GridPlace place);
/// A text of the user in such a name: at most 40 characters of it.
std::string Shortened(const std::string& text);

/// Empties the selected cells.
void ClearCells(Document& document, GridSelection selection);
/// The same, after they were copied.
void CutCells(Document& document, GridSelection selection);
/// Puts the first cell of each selected column, range by range, into those below it. A range of one row takes
/// the row above it.
void FillDown(Document& document, GridSelection selection);

/// Whether every row of the selection is excluded.
bool AllExcluded(const DataMatrix& cells, GridSelection selection);
/// Writes "Y" into the Exclude cell of each row of the selection that is not excluded, or empties it in each
/// that is.
void ExcludeRows(Document& document, GridSelection selection, bool exclude);

/// A dataset with a clipboard text pasted into it, and what to say of that.
struct PastedNumbers {
    Dataset dataset;
    GridPlace start;
    PasteResult result;
    std::size_t lines = 0;  ///< With something in them.
    std::size_t commas = 0; ///< Taken as separators.
};
/// Pastes into a copy, by the grid's own rules. A million rows take a while: this may run in another thread.
PastedNumbers PasteNumbers(Dataset dataset, std::string_view text, GridPlace current);
/// Makes the copy's table the document's, whose cells must be those that the copy began with.
void TakePasted(Document& document, const PastedNumbers& pasted);

/// Puts the rows of a table, up to its last filled one, over those from `firstRow` on; the document's table
/// grows as needed. Columns without any cell in `table` are left alone.
void PutTable(Document& document, const DataMatrix& table, std::int32_t firstRow);

/// Closes up the rows without X or Y, as RemoveEmptyRows tells.
RowCountResult RemoveInvalidRows(Document& document);
/// Makes the table as long as a text says; otherwise nothing changes.
RowCountResult ApplyNumberOfRows(Document& document, const std::string& text);
/// Ticks or clears the box "Swap X to Y": X and Y change places.
void SwapXToY(Document& document, bool swapped);
/// Orders the filled rows by one column: numbers, then texts, then empty cells, which stay last also in
/// descending order. Rows that are equal keep their order.
void SortRows(Document& document, int column, bool descending);

/// What is asked before ClearDataset.
inline constexpr const char* ClearQuestion = "Do you want clear the dataset?";
/// Empties the cells, the notes and the dataset's name; the options and the row count stay.
void EmptyDataset(Dataset& dataset, SessionState& session);
/// The same as one step.
void ClearDataset(Document& document);

} // namespace corvane
