#pragma once

#include "plots/chart_model.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

enum class ChartFormat { Svg, Png, Pdf, Bmp };

/// The format that a file's name ends in.
std::optional<ChartFormat> ChartFormatOf(std::string_view path);

/// Pictures as the bytes of their files, or why there are none.
struct Pictures {
    std::vector<std::string> bytes;
    std::string failure; ///< Empty where all were made.
};

/// Paints charts.
class PicturePainter {
public:
    virtual ~PicturePainter() = default;

    /// Why the values of a chart cannot be drawn, or "".
    virtual std::string OutOfReach(const ChartModel& chart) const = 0;

    /// A picture for each chart. One that cannot be painted leaves none. PNG and BMP have two dots a pixel.
    virtual Pictures Paint(std::span<const ChartModel> charts, ChartFormat format, ChartSize size) = 0;
};

} // namespace corvane
