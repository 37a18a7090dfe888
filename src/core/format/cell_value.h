#pragma once

#include <string>
#include <variant>

namespace corvane {

/// What a cell of the dataset table or a field of the report holds: nothing, text in UTF-8, or a number.
using CellValue = std::variant<std::monostate, std::string, double>;

/// True for an empty cell and for the empty text; blanks are not empty.
bool IsEmpty(const CellValue& value);

/// Text as it is, a number by `NumberText`, an empty cell as "".
std::string CellText(const CellValue& value);

} // namespace corvane
