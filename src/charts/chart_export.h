#pragma once

#include "plots/chart_model.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

enum class ChartFormat { Svg, Png, Pdf, Bmp };

/// The format that a file's name ends in.
std::optional<ChartFormat> ChartFormatOf(std::string_view path);

/// A chart as the bytes of a picture file, or why there is none. PNG and BMP have two dots a pixel.
struct ChartPicture {
    std::string bytes;
    std::string failure; ///< Empty where the picture was made.
};
ChartPicture RenderChart(const ChartModel& chart, ChartFormat format, ChartSize size = {});

} // namespace corvane
