#pragma once

#include "core/compact_cell.h"
#include "core/format/cell_value.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace corvane {

/// The columns of the dataset that hold something; column 0 is the grid's row number and never stored.
enum Column : int {
    ColumnX = 1,
    ColumnSDX = 2,
    ColumnY = 3,
    ColumnSDY = 4,
    ColumnRankX = 5,
    ColumnRankY = 6,
    ColumnExclude = 7,
    LastColumn = ColumnExclude
};

/// Whether a cell holds nothing or the empty text.
inline bool IsEmpty(const CellView& cell) {
    const auto* text = std::get_if<std::string_view>(&cell);
    return text ? text->empty() : std::holds_alternative<std::monostate>(cell);
}
std::string CellText(const CellView& cell);
/// The number that a cell holds or that its text reads as; nullopt for other text and an empty cell.
std::optional<double> CellNumber(const CellView& cell);
CellValue ToValue(const CellView& cell);
CellView ToView(const CellValue& cell); ///< Valid as long as the value is.

/// The table of cells of the grid, addressed (column, row), both from 1. For N data rows the row bound is
/// N + 1: the row N + 1 is part of the table and never shown, walked or saved, but keeps its cells when the
/// table shrinks by one row and grows again. A column takes memory up to its last filled row only, so rows
/// that hold nothing cost nothing. A copy shares its blocks of cells with the original until one of the two
/// writes to them: it costs as much for a million rows as for ten.
class DataMatrix {
public:
    /// The N of a fresh start.
    static constexpr std::int32_t StartRows = 19;

    std::int32_t RowBound() const { return rowBound; }
    /// N, the number of data rows.
    std::int32_t RowCount() const { return rowBound - 1; }
    /// The last data row that holds a cell, at most N; 0 for an empty table.
    std::int32_t LastFilledRow() const;

    /// The cell; an empty one for a place that was never filled. Column 1 to 7, row 1 to the bound. Valid
    /// until the table changes.
    CellView At(int column, std::int32_t row) const {
        const SharedBlocks& blocks = columns[static_cast<std::size_t>(column)];
        const std::size_t block = Index(row) / blockRows;
        if (!blocks || block >= blocks->size() || !(*blocks)[block])
            return {};
        return (*(*blocks)[block])[Index(row) % blockRows].View();
    }
    /// Puts a value into a cell. A row beyond the bound is left alone.
    void Set(int column, std::int32_t row, const CellView& value);

    /// Makes room for N rows: the bound becomes N + 1. Cells up to the bound keep their contents.
    void SetRowCount(std::int32_t count);
    /// Empties every cell and keeps the bound.
    void Clear();
    /// Exchanges two columns in the rows 1 to N.
    void SwapColumns(int first, int second);
    /// Whether every cell is shared with the other table: then the two are equal. False says nothing.
    bool SharesAllCellsWith(const DataMatrix& other) const { return columns == other.columns; }
    /// Cells are shared by so many rows of a column at once.
    static constexpr std::int32_t BlockRows = 256;
    /// The same for the rows of one block of one column, which are block * BlockRows + 1 and on, up to the
    /// shorter bound.
    bool SharesBlockWith(const DataMatrix& other, int column, std::size_t block) const {
        return BlockOf(column, block) == other.BlockOf(column, block);
    }
    /// Puts a column of another table in place of this one's, as far as the bound goes.
    void TakeColumn(int column, const DataMatrix& other);

private:
    static constexpr std::size_t blockRows = BlockRows;
    static constexpr std::size_t Index(std::int32_t row) { return static_cast<std::size_t>(row) - 1; }
    using Block = std::array<CompactCell, blockRows>;
    using SharedBlock = std::shared_ptr<Block>; ///< Null: its rows are empty.
    using Blocks = std::vector<SharedBlock>;
    using SharedBlocks = std::shared_ptr<Blocks>; ///< Null: the column is empty.

    const void* BlockOf(int column, std::size_t block) const {
        const SharedBlocks& blocks = columns[static_cast<std::size_t>(column)];
        return blocks && block < blocks->size() ? (*blocks)[block].get() : nullptr;
    }
    /// A column's blocks, for this table alone.
    Blocks& Own(int column);
    void CutToBound(int column);

    std::array<SharedBlocks, LastColumn + 1> columns;
    std::int32_t rowBound = StartRows + 1;
};

} // namespace corvane
