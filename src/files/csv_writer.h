#pragma once

#include "core/data_matrix.h"

#include <string>

namespace corvane {

/// The cells of a dataset as a table in text form (RFC 4180, in UTF-8): a header and a line for every data
/// row, blank ones too, so that an import has as many. Texts that are no plain numbers are in quotes, so
/// that it gives the same cells.
std::string CsvText(const DataMatrix& cells);

} // namespace corvane
