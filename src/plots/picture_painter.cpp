#include "plots/picture_painter.h"

#include "core/format/text_lists.h"

namespace corvane {

std::optional<ChartFormat> ChartFormatOf(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    const std::string ending = dot == std::string_view::npos ? "" : UpperCase(path.substr(dot + 1));
    if (ending == "SVG")
        return ChartFormat::Svg;
    if (ending == "PNG")
        return ChartFormat::Png;
    if (ending == "PDF")
        return ChartFormat::Pdf;
    if (ending == "BMP")
        return ChartFormat::Bmp;
    return std::nullopt;
}

} // namespace corvane
