#pragma once

#include "files/csv_layout.h"

namespace corvane {

/// Where a table begins: after a first line "sep=;", by which spreadsheets tell each other what separates
/// the columns, and which gives `said` that character; else 0.
std::size_t AfterStatement(std::string_view table, char& said);

/// Finds what separates the columns: comma, semicolon or tab. Returns why it cannot be told, or nothing.
std::optional<std::string> FindSeparator(std::string_view table, char& separator);

} // namespace corvane
