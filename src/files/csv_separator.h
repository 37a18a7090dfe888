#pragma once

#include "files/csv_layout.h"

namespace corvane {

/// Finds what parts the columns: comma, semicolon or tab. Returns why it cannot be told, or nothing.
std::optional<std::string> FindSeparator(std::string_view table, char& separator);

} // namespace corvane
