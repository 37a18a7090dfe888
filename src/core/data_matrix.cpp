#include "core/data_matrix.h"

#include "core/format/numbers.h"

#include <algorithm>
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
    for (const auto& blocks : columns) {
        for (std::size_t block = blocks.size(); block-- > 0 && (block + 1) * blockRows > last;) {
            std::size_t row = std::min(blockRows * block + blocks[block].size(), Index(rowBound));
            while (row > std::max(last, blockRows * block) &&
                   blocks[block][row - 1 - blockRows * block].Empty())
                --row;
            if (row > std::max(last, blockRows * block)) {
                last = row;
                break;
            }
        }
    }
    return static_cast<std::int32_t>(last);
}

void DataMatrix::Set(int column, std::int32_t row, const CellView& value) {
    if (row < 1 || row > rowBound)
        return;
    auto& blocks = columns[static_cast<std::size_t>(column)];
    const std::size_t block = Index(row) / blockRows;
    if (block >= blocks.size() || blocks[block].empty()) {
        if (IsEmpty(value))
            return;
        if (block >= blocks.size())
            blocks.resize(block + 1);
        blocks[block].resize(blockRows);
    }
    blocks[block][Index(row) % blockRows] = CompactCell(value);
}

void DataMatrix::SetRowCount(std::int32_t count) {
    rowBound = count + 1;
    const auto kept = static_cast<std::size_t>(rowBound);
    for (auto& blocks : columns) {
        if (blocks.size() * blockRows <= kept)
            continue;
        blocks.resize((kept + blockRows - 1) / blockRows);
        if (auto& last = blocks.back(); !last.empty()) {
            last.resize(kept - (blocks.size() - 1) * blockRows);
            last.resize(blockRows);
        }
    }
}

void DataMatrix::Clear() {
    for (auto& blocks : columns)
        blocks.clear();
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
