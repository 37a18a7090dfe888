#include "core/evaluation_arrays.h"

#include <algorithm>

namespace corvane {
namespace {

double NumberOrZero(const CellView& cell) {
    return CellNumber(cell).value_or(0);
}

} // namespace

bool RowIsExcluded(const DataMatrix& cells, std::int32_t row) {
    const CellView mark = cells.At(ColumnExclude, row);
    if (IsEmpty(mark))
        return false;
    const auto* text = std::get_if<std::string_view>(&mark);
    const char first = text ? text->front() : CellText(mark).front();
    return first == 'Y' || first == 'y' || first == '0';
}

bool RowIsAnalysed(const DataMatrix& cells, std::int32_t row) {
    return !IsEmpty(cells.At(ColumnX, row)) && !RowIsExcluded(cells, row);
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
        arrays.X.push_back(NumberOrZero(cells.At(ColumnX, row)));
        arrays.SDX.push_back(NumberOrZero(cells.At(ColumnSDX, row)));
        arrays.Y.push_back(NumberOrZero(cells.At(ColumnY, row)));
        arrays.SDY.push_back(NumberOrZero(cells.At(ColumnSDY, row)));
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
