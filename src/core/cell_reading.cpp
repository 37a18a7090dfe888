#include "core/cell_reading.h"

#include "core/evaluation_arrays.h"

#include <algorithm>

namespace corvane {
namespace {

constexpr int readColumns[] = {ColumnX, ColumnSDX, ColumnY, ColumnSDY};
constexpr int countedColumns[] = {ColumnX, ColumnSDX, ColumnY, ColumnSDY, ColumnExclude};

bool HasAnything(const DataMatrix& cells, std::int32_t row) {
    return std::ranges::any_of(readColumns, [&](int column) { return !IsEmpty(cells.At(column, row)); });
}

/// The reading of a cell in a row that is analysed.
CellReading InAnalysedRow(const CellView& cell, int column) {
    if (IsEmpty(cell))
        return column == ColumnY ? CellReading::EmptyAsZero : CellReading::AsItIs;
    return CellNumber(cell) ? CellReading::AsItIs : CellReading::TextAsZero;
}

bool HasUnreadable(const DataMatrix& cells, std::int32_t row) {
    return std::ranges::any_of(
        readColumns, [&](int column) { return IsUnreadable(InAnalysedRow(cells.At(column, row), column)); });
}

} // namespace

CellReading ReadingOf(const DataMatrix& cells, std::int32_t row, int column) {
    if (column > ColumnSDY || RowIsExcluded(cells, row))
        return CellReading::AsItIs;
    if (!IsEmpty(cells.At(ColumnX, row)))
        return InAnalysedRow(cells.At(column, row), column);
    return column == ColumnX && HasAnything(cells, row) ? CellReading::LeavesTheRowOut : CellReading::AsItIs;
}

std::size_t RowCounter::BlockCount() const {
    return (static_cast<std::size_t>(cells.RowCount()) + DataMatrix::BlockRows - 1) / DataMatrix::BlockRows;
}

std::int32_t RowCounter::LastRowOf(std::size_t block) const {
    const auto last = static_cast<std::int64_t>(block + 1) * DataMatrix::BlockRows;
    return static_cast<std::int32_t>(std::min<std::int64_t>(last, cells.RowCount()));
}

bool RowCounter::SameAsBefore(const DataMatrix& table, std::size_t block) const {
    return std::ranges::all_of(countedColumns,
                               [&](int column) { return cells.SharesBlockWith(table, column, block); });
}

void RowCounter::Forget(Block& block) {
    if (block.lastRow == 0)
        return;
    total.inUse -= block.counts.inUse;
    total.excluded -= block.counts.excluded;
    total.unreadable -= block.counts.unreadable;
    block = {};
    ++uncounted;
}

void RowCounter::Follow(const DataMatrix& table) {
    for (std::size_t block = 0; block < blocks.size(); ++block)
        if (blocks[block].lastRow > 0 && !SameAsBefore(table, block))
            Forget(blocks[block]);
    cells = table;
    const std::size_t count = BlockCount();
    while (blocks.size() > count) {
        Forget(blocks.back());
        blocks.pop_back();
        --uncounted;
    }
    uncounted += count - blocks.size();
    blocks.resize(count);
    for (std::size_t block = 0; block < count; ++block)
        if (blocks[block].lastRow != LastRowOf(block))
            Forget(blocks[block]);
    cursor = 0;
}

void RowCounter::CountBlock(std::size_t block) {
    RowCounts counts;
    const std::int32_t last = LastRowOf(block);
    for (auto row = static_cast<std::int32_t>(block) * DataMatrix::BlockRows + 1; row <= last; ++row) {
        if (RowIsExcluded(cells, row)) {
            ++counts.excluded;
        } else if (!IsEmpty(cells.At(ColumnX, row))) {
            ++counts.inUse;
            counts.unreadable += HasUnreadable(cells, row) ? 1 : 0;
        }
    }
    blocks[block] = {counts, last};
    --uncounted;
    total.inUse += counts.inUse;
    total.excluded += counts.excluded;
    total.unreadable += counts.unreadable;
}

bool RowCounter::Count(std::int32_t rows) {
    for (; uncounted > 0 && rows > 0; ++cursor)
        if (blocks[cursor].lastRow == 0) {
            CountBlock(cursor);
            rows -= DataMatrix::BlockRows;
        }
    return Complete();
}

std::optional<GridPlace> RowCounter::NextUnreadable(GridPlace from, bool forward) {
    const auto places = static_cast<std::int64_t>(cells.RowCount()) * LastColumn;
    const auto blockPlaces = static_cast<std::int64_t>(DataMatrix::BlockRows) * LastColumn;
    const std::int64_t start = static_cast<std::int64_t>(from.row - 1) * LastColumn + from.column - 1;
    // Cells as one line, and places on a ring of them; a block without an unreadable row is one step.
    for (std::int64_t step = 1; step <= places;) {
        const std::int64_t place = (start + (forward ? step : places - step)) % places;
        const auto block = static_cast<std::size_t>(place / blockPlaces);
        if (blocks[block].lastRow == 0)
            CountBlock(block);
        if (blocks[block].counts.unreadable == 0) {
            const std::int64_t first = static_cast<std::int64_t>(block) * blockPlaces;
            const std::int64_t last = std::min(first + blockPlaces, places) - 1;
            step += forward ? last - place + 1 : place - first + 1;
            continue;
        }
        const auto row = static_cast<std::int32_t>(place / LastColumn + 1);
        const int column = static_cast<int>(place % LastColumn) + 1;
        if (IsUnreadable(ReadingOf(cells, row, column)))
            return GridPlace{row, column};
        ++step;
    }
    return std::nullopt;
}

} // namespace corvane
