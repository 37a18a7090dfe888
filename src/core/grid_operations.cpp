#include "core/grid_operations.h"

#include "core/format/format_picture.h"
#include "core/format/numbers.h"

#include <algorithm>
#include <vector>

namespace corvane {
namespace {

bool XEmpty(const DataMatrix& cells, std::int32_t row) {
    return IsEmpty(cells.At(ColumnX, row));
}

bool YEmpty(const DataMatrix& cells, std::int32_t row) {
    return IsEmpty(cells.At(ColumnY, row));
}

/// Where each row of the table comes from after closing up; 0 for an emptied row. `front` counts from row 1,
/// `back` ends at the last row, and the rows between the two are empty.
struct RowOrder {
    std::vector<std::int32_t> front, back;
};

/// A full row ends a gap: it and all rows after it move up to the gap's mark, which is the last row with an
/// empty X, or the first with an empty Y, of the gap. The places that the moved rows leave are emptied; a row
/// of the gap that they are too few to cover stays where it is, at the table's end.
RowOrder OrderAfterClosingUp(const DataMatrix& cells) {
    RowOrder order;
    std::vector<std::int32_t> gap; // from the mark on
    const std::int32_t last = cells.LastFilledRow();
    for (std::int32_t row = 1; row <= last; ++row) {
        if (XEmpty(cells, row) || (YEmpty(cells, row) && gap.empty())) {
            order.front.insert(order.front.end(), gap.begin(), gap.end());
            gap.assign(1, row);
        } else if (gap.empty()) {
            order.front.push_back(row);
        } else if (YEmpty(cells, row)) {
            gap.push_back(row);
        } else {
            const std::size_t moved =
                static_cast<std::size_t>(cells.RowCount()) - order.front.size() - gap.size();
            const std::size_t covered = std::min(gap.size(), moved);
            order.back.insert(order.back.end(), gap.begin() + static_cast<std::ptrdiff_t>(covered),
                              gap.end());
            order.back.insert(order.back.end(), covered, 0);
            gap.clear();
            order.front.push_back(row);
        }
    }
    order.front.insert(order.front.end(), gap.begin(), gap.end());
    return order;
}

void PutRow(DataMatrix& cells, std::int32_t to, const DataMatrix& old, std::int32_t from) {
    for (int column = ColumnX; column <= LastColumn; ++column)
        cells.Set(column, to, from == 0 ? CellView{} : old.At(column, from));
}

void CloseUp(DataMatrix& cells) {
    const RowOrder order = OrderAfterClosingUp(cells);
    const DataMatrix old = cells;
    std::int32_t row = 0;
    for (const std::int32_t from : order.front)
        PutRow(cells, ++row, old, from);
    for (const std::int32_t filled = old.LastFilledRow(); row < filled;)
        PutRow(cells, ++row, old, 0);
    row = cells.RowCount() - static_cast<std::int32_t>(order.back.size());
    for (const std::int32_t from : order.back)
        PutRow(cells, ++row, old, from);
}

} // namespace

RowCountResult ApplyRowCount(Dataset& dataset) {
    const double rows = LeadingNumber(dataset.options.N);
    if (!(rows > 1))
        return RowCountResult::TooFew;
    const auto bound = ToInteger32(rows + 1); // the grid's rows, its header among them
    if (!bound)
        return RowCountResult::TooLarge;
    dataset.cells.SetRowCount(*bound - 1);
    return RowCountResult::Applied;
}

std::string MatrixTOGrid(const Dataset& dataset, std::int32_t row, int column) {
    std::string_view picture = "####";
    if (column == ColumnX || column == ColumnY)
        picture = dataset.options.GRID_FORMAT_XY;
    else if (column == ColumnSDX || column == ColumnSDY)
        picture = dataset.options.GRID_FORMAT_SD;
    const CellValue cell = ToValue(dataset.cells.At(column, row));
    return FormatPicture(cell, picture).value_or(CellText(cell));
}

std::string_view GridCaption(const AnalysisOptions& options, int column) {
    static constexpr std::string_view captions[] = {"#",    "X (Pred)", "SD X",   "Y (Obs)",
                                                    "SD Y", "Rank X",   "Rank Y", "Exclude"};
    if (IsSet(options.SwapXY) && column == ColumnX)
        return "X (Obs)";
    if (IsSet(options.SwapXY) && column == ColumnY)
        return "Y (Pred)";
    return captions[column];
}

RowCountResult RemoveEmptyRows(Dataset& dataset) {
    DataMatrix& cells = dataset.cells;
    CloseUp(cells);
    for (std::int32_t row = 1; row <= cells.RowCount(); ++row)
        if (XEmpty(cells, row) || YEmpty(cells, row)) {
            dataset.options.N = NumberText(static_cast<double>(row - 1));
            return ApplyRowCount(dataset);
        }
    return RowCountResult::Applied;
}

void SwapXAndY(DataMatrix& cells) {
    cells.SwapColumns(ColumnX, ColumnY);
    cells.SwapColumns(ColumnSDX, ColumnSDY);
    cells.SwapColumns(ColumnRankX, ColumnRankY);
}

} // namespace corvane
