#include "core/evaluation_arrays.h"

#include <algorithm>

namespace corvane {
namespace {

double CellNumber(const CellView& cell) {
    return NumberOf(cell).value_or(0);
}

} // namespace

bool RowIsAnalysed(const DataMatrix& cells, std::int32_t row) {
    if (IsEmpty(cells.At(ColumnX, row)))
        return false;
    const CellView mark = cells.At(ColumnExclude, row);
    if (IsEmpty(mark))
        return true;
    const auto* text = std::get_if<std::string_view>(&mark);
    const char first = text ? text->front() : CellText(mark).front();
    return first != 'Y' && first != 'y' && first != '0';
}

EvaluationArrays SelectRows(const DataMatrix& cells) {
    EvaluationArrays arrays;
    const std::int32_t last = cells.LastFilledRow();
    for (auto* column : {&arrays.X, &arrays.SDX, &arrays.Y, &arrays.SDY})
        column->reserve(static_cast<std::size_t>(last));
    for (std::int32_t row = 1; row <= last; ++row) {
        if (!RowIsAnalysed(cells, row))
            continue;
        arrays.rows.push_back(row);
        arrays.X.push_back(CellNumber(cells.At(ColumnX, row)));
        arrays.SDX.push_back(CellNumber(cells.At(ColumnSDX, row)));
        arrays.Y.push_back(CellNumber(cells.At(ColumnY, row)));
        arrays.SDY.push_back(CellNumber(cells.At(ColumnSDY, row)));
        arrays.XYDiffer = arrays.XYDiffer || arrays.X.back() != arrays.Y.back();
    }
    return arrays;
}

void IgnoreUncertainties(EvaluationArrays& arrays, const AnalysisOptions& options) {
    if (IsSet(options.UNCERTAINTY_X))
        std::ranges::fill(arrays.SDX, IgnoredSD);
    if (IsSet(options.UNCERTAINTY_Y))
        std::ranges::fill(arrays.SDY, IgnoredSD);
}

} // namespace corvane
