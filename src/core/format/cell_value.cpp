#include "core/format/cell_value.h"

#include "core/format/numbers.h"

namespace corvane {

bool IsEmpty(const CellValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text ? text->empty() : std::holds_alternative<std::monostate>(value);
}

std::string CellText(const CellValue& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    const auto* number = std::get_if<double>(&value);
    return number ? NumberText(*number) : std::string();
}

} // namespace corvane
