#pragma once

#include "core/dataset.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// A cell of the grid, both counted from 1.
struct GridPlace {
    std::int32_t row = 1;
    int column = ColumnX;
};

/// What a paste did, for the one message that tells the user what it left out.
struct PasteResult {
    std::size_t stored = 0;
    std::size_t notNumbers = 0;  ///< Texts that are no numbers; they were dropped.
    std::size_t withoutRoom = 0; ///< Numbers for which there was no row.
};

/// The table for the clipboard as numbers: a line for each row, ended by CR LF, cells separated by ", ".
/// Numbers of two characters and more get a "0" in front (1.5 is "01.5"), what reads as no number is
/// "Error 13", and the exclusion mark is kept as it is.
std::string CopyText(const DataMatrix& cells);

/// A cell as spreadsheets take it: numbers at full precision, texts kept; one with a tab, a line end or a
/// quote in it is quoted.
std::string TableCell(const CellView& cell);
/// The table of such cells: a line for each row, ended by CR LF, cells separated by tabs.
std::string CopyAsTable(const DataMatrix& cells);

/// Stores the numbers of a clipboard text. ";", ",", tab and line feed separate them, the end of the text
/// closes the last, CR is dropped. With SINGLE_COLUMN they go down from the current cell; otherwise they fill
/// rows from row 1 and column 1 on, a line feed begins a row, and what comes after column 7 falls on it. With
/// AUTO_ROW the table grows as values need rows, otherwise the rest is left out. A current cell in column 5
/// or after it takes nothing.
PasteResult Paste(Dataset& dataset, std::string_view text, GridPlace current);

} // namespace corvane
