#include "core/data_matrix.h"

#include "core/format/numbers.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace corvane {

CellValue ToValue(const CellView& cell) {
    if (const auto* text = std::get_if<std::string_view>(&cell))
        return std::string(*text);
    if (const auto* number = std::get_if<double>(&cell))
        return *number;
    return {};
}

std::string CellText(const CellView& cell) {
    return CellText(ToValue(cell));
}

std::optional<double> CellNumber(const CellView& cell) {
    if (const auto* number = std::get_if<double>(&cell))
        return *number;
    if (const auto* text = std::get_if<std::string_view>(&cell))
        return ReadNumber(*text);
    return std::nullopt;
}

std::int32_t DataMatrix::LastFilledRow() const {
    std::size_t last = 0;
    for (const SharedBlocks& blocks : columns) {
        for (std::size_t block = blocks ? blocks->size() : 0;
             block-- > 0 && (block + 1) * blockRows > last;) {
            const SharedBlock& cells = (*blocks)[block];
            if (!cells)
                continue;
            const std::size_t before = blockRows * block;
            std::size_t row = std::min(before + blockRows, Index(rowBound));
            while (row > std::max(last, before) && (*cells)[row - 1 - before].Empty())
                --row;
            if (row > std::max(last, before)) {
                last = row;
                break;
            }
        }
    }
    return static_cast<std::int32_t>(last);
}

namespace {

/// What a pointer shares, made this owner's alone; a new one where there is none.
template<class Shared>
Shared& OwnCopy(std::shared_ptr<Shared>& shared) {
    if (!shared)
        shared = std::make_shared<Shared>();
    else if (shared.use_count() > 1)
        shared = std::make_shared<Shared>(*shared);
    else // another thread that gave its share up has read all that it wanted before what is written now
        std::atomic_thread_fence(std::memory_order_acquire);
    return *shared;
}

} // namespace

DataMatrix::Blocks& DataMatrix::Own(int column) {
    return OwnCopy(columns[static_cast<std::size_t>(column)]);
}

void DataMatrix::Set(int column, std::int32_t row, const CellView& value) {
    if (row < 1 || row > rowBound)
        return;
    const CellView before = At(column, row);
    if (before == value || (IsEmpty(value) && IsEmpty(before)))
        return; // keeps what is shared
    // The value may be a view of a cell of this table.
    CompactCell cell(value);
    const std::size_t block = Index(row) / blockRows;
    Blocks& blocks = Own(column);
    if (block >= blocks.size())
        blocks.resize(block + 1);
    OwnCopy(blocks[block])[Index(row) % blockRows] = std::move(cell);
}

void DataMatrix::CutToBound(int column) {
    const auto kept = static_cast<std::size_t>(rowBound);
    const SharedBlocks& shared = columns[static_cast<std::size_t>(column)];
    if (!shared || shared->size() * blockRows <= kept)
        return;
    Blocks& blocks = Own(column);
    blocks.resize((kept + blockRows - 1) / blockRows);
    if (SharedBlock& last = blocks.back()) {
        Block& cells = OwnCopy(last);
        for (std::size_t row = kept - (blocks.size() - 1) * blockRows; row < blockRows; ++row)
            cells[row] = {};
    }
}

void DataMatrix::SetRowCount(std::int32_t count) {
    rowBound = count + 1;
    for (int column = ColumnX; column <= LastColumn; ++column)
        CutToBound(column);
}

void DataMatrix::TakeColumn(int column, const DataMatrix& other) {
    columns[static_cast<std::size_t>(column)] = other.columns[static_cast<std::size_t>(column)];
    CutToBound(column);
}

void DataMatrix::Clear() {
    columns = {};
}

void DataMatrix::SwapColumns(int first, int second) {
    const CellValue hiddenFirst = ToValue(At(first, rowBound)), hiddenSecond = ToValue(At(second, rowBound));
    std::swap(columns[static_cast<std::size_t>(first)], columns[static_cast<std::size_t>(second)]);
    // The hidden row stays as it was.
    Set(first, rowBound, ToView(hiddenFirst));
    Set(second, rowBound, ToView(hiddenSecond));
}

CellView ToView(const CellValue& cell) {
    if (const auto* text = std::get_if<std::string>(&cell))
        return std::string_view(*text);
    if (const auto* number = std::get_if<double>(&cell))
        return *number;
    return {};
}

} // namespace corvane
