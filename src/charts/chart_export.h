#pragma once

#include "plots/picture_painter.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

/// Why the values of a chart cannot be drawn, or "": ranges beyond 1E±250.
std::string OutOfReach(const ChartModel& chart);

/// A chart as the bytes of a picture file, or why there is none. PNG and BMP have two dots a pixel. A PDF
/// file holds when it was made: now, or at `created`, in seconds since 1970-01-01 00:00:00 UTC.
struct ChartPicture {
    std::string bytes;
    std::string failure; ///< Empty where the picture was made.
};
ChartPicture RenderChart(const ChartModel& chart, ChartFormat format, ChartSize size = {},
                         std::optional<std::int64_t> created = std::nullopt);

} // namespace corvane
