#include "report/transition.h"

#include "core/format/text_lists.h"

namespace corvane {
namespace {
OldField Made(Field field) {
    Field copy = field;
    auto text = FormatField(copy);
    if (!text)
        throw RunFailure(CellText(field.value) + " does not fit a field of width " +
                         std::to_string(field.width) + " with " + std::to_string(field.decimals) +
                         " decimals");
    return {std::move(field), {}, std::move(*text)};
}
} // namespace
OldField&& OldField::Trimmed() && {
    text = std::string(TrimBlanks(text));
    return std::move(*this);
}
OldField F(std::int32_t width, std::int32_t decimals, CellValue value) {
    return Made({std::move(value), width, decimals, AlignRight, false, false});
}
OldField FP(std::int32_t width, std::int32_t decimals, CellValue value) {
    return Made({std::move(value), width, decimals, AlignRight, true, false});
}
OldField F0(std::int32_t width, std::int32_t decimals, CellValue value) {
    return Made({std::move(value), width, decimals, AlignRight, false, true});
}
} // namespace corvane
