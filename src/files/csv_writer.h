#pragma once

#include "core/data_matrix.h"

#include <string>

namespace corvane {

/// The cells of a dataset as a table in text form (RFC 4180, in UTF-8): a header and a line for every data
/// row. Empty rows at the end are left out where they are more than 1000 and more than all others. Texts that
/// are no plain numbers stand in quotes, so that an import gives the same cells.
std::string CsvText(const DataMatrix& cells);

} // namespace corvane
