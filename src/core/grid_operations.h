#pragma once

#include "core/dataset.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The message of a row count below 2. It runs two sentences into one, and 2 is accepted all the same.
inline constexpr const char* TooFewRowsMessage =
    "At least 3 rows (points) are requiredNumber of rows have to be at least 3";

enum class RowCountResult { Applied, TooFew, TooLarge };

/// Makes the table as long as the option N says. Below 2 rows nothing changes and the caller shows
/// TooFewRowsMessage; above what a 32-bit row number can count nothing changes either.
RowCountResult ApplyRowCount(Dataset& dataset);

/// What the grid shows of a cell: X and Y through GRID_FORMAT_XY, their SDs through GRID_FORMAT_SD, the
/// others through "####", so that a zero rank shows as nothing. The table keeps the unformatted value.
std::string MatrixTOGrid(const Dataset& dataset, std::int32_t row, int column);

/// The caption of a column, 1 to 7. While X and Y are exchanged the columns say what they now hold.
std::string_view GridCaption(const AnalysisOptions& options, int column);

/// Closes up rows whose X or Y is empty and cuts the table at the first that is left. Of several empty rows
/// in a run only the last is closed up, so the cut falls at the first of them and what follows is lost:
/// the question at saving is the user's warning.
RowCountResult RemoveEmptyRows(Dataset& dataset);

/// Exchanges X with Y, their SDs and their ranks in every data row.
void SwapXAndY(DataMatrix& cells);

} // namespace corvane
