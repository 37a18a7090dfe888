#pragma once

#include "app/document.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace corvane {

/// What is selected in the grid; its ranges may overlap and come in any order.
using GridSelection = std::span<const GridRange>;

/// Neighbouring rows of which the same columns are selected; bit c of `columns` is column c.
struct RowStripe {
    std::int32_t firstRow = 1, lastRow = 1;
    unsigned columns = 0;

    bool Has(int column) const { return (columns >> column & 1) != 0; }
    std::int32_t Rows() const { return lastRow - firstRow + 1; }
};

/// The selection from top to bottom, every cell of it once. Rows without a selected cell are left out.
std::vector<RowStripe> StripesOf(GridSelection selection);

/// The smallest range that holds all of a selection, which is not empty.
GridRange BoundsOf(GridSelection selection);

/// The selection as spreadsheets take it, as CopyAsTable does for the whole table, numbers at full precision.
/// All columns between the first and the last selected one, and all rows with a selected cell; a cell among
/// them that is not selected is empty.
std::string CopySelection(const DataMatrix& cells, GridSelection selection);

} // namespace corvane
