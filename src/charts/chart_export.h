#pragma once

#include "plots/chart_model.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

enum class ChartFormat { Svg, Png, Pdf, Bmp };

/// The format that a file's name ends in.
std::optional<ChartFormat> ChartFormatOf(std::string_view path);

/// Why the values of a chart cannot be drawn, or "": ranges beyond 1E±250.
std::string OutOfReach(const ChartModel& chart);

/// A chart as the bytes of a picture file, or why there is none. PNG and BMP have two dots a pixel.
struct ChartPicture {
    std::string bytes;
    std::string failure; ///< Empty where the picture was made.
};
ChartPicture RenderChart(const ChartModel& chart, ChartFormat format, ChartSize size = {});

} // namespace corvane
