#include "core/data_matrix.h"

#include <algorithm>
#include <utility>

namespace corvane {

std::int32_t DataMatrix::LastFilledRow() const {
    std::size_t last = 0;
    for (const auto& cells : columns) {
        std::size_t filled = std::min(cells.size(), static_cast<std::size_t>(RowCount()));
        while (filled > last && IsEmpty(cells[filled - 1]))
            --filled;
        last = std::max(last, filled);
    }
    return static_cast<std::int32_t>(last);
}

const CellValue& DataMatrix::At(int column, std::int32_t row) const {
    static const CellValue empty;
    const auto& cells = columns[static_cast<std::size_t>(column)];
    const auto index = static_cast<std::size_t>(row) - 1;
    return index < cells.size() ? cells[index] : empty;
}

void DataMatrix::Set(int column, std::int32_t row, CellValue value) {
    if (row < 1 || row > rowBound)
        return;
    auto& cells = columns[static_cast<std::size_t>(column)];
    const auto index = static_cast<std::size_t>(row) - 1;
    if (index < cells.size())
        cells[index] = std::move(value);
    else if (!IsEmpty(value)) {
        cells.resize(index);
        cells.push_back(std::move(value));
    }
}

void DataMatrix::SetRowCount(std::int32_t count) {
    rowBound = count + 1;
    for (auto& cells : columns)
        if (cells.size() > static_cast<std::size_t>(rowBound))
            cells.resize(static_cast<std::size_t>(rowBound));
}

void DataMatrix::Clear() {
    for (auto& cells : columns)
        cells.clear();
}

void DataMatrix::SwapColumns(int first, int second) {
    auto& left = columns[static_cast<std::size_t>(first)];
    auto& right = columns[static_cast<std::size_t>(second)];
    std::swap(left, right);
    // The hidden row stays as it was.
    const CellValue hiddenLeft = At(second, rowBound);
    const CellValue hiddenRight = At(first, rowBound);
    Set(first, rowBound, hiddenLeft);
    Set(second, rowBound, hiddenRight);
}

void DataMatrix::Reserve(std::int32_t rows) {
    for (int column : {ColumnX, ColumnY})
        columns[static_cast<std::size_t>(column)].reserve(static_cast<std::size_t>(rows));
}

} // namespace corvane
