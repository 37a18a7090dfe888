#pragma once

#include "core/format/shared_column.h"

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace corvane {

/// What an XY plot shows, recorded by whoever asks for it. Chart columns are counted from 1: ChartData[0] is
/// column 1, an element a point, NaN a blank.
struct PlotRequest {
    std::vector<SharedColumn> ChartData;
    std::int32_t PointCount = 0;
    std::int32_t ColumnCount = 0;
    bool SameScale = false; ///< Both axes have one scale.
    std::string Title, TitleFont = "Arial", TitleSize = "14";
    std::string Footnote, FootnoteFont = "Arial", FootnoteSize = "8";
    std::string XAxisTitle, YAxisTitle, AxisTitleFont = "Arial", AxisTitleSize = "10";
    std::string AxisLabelFont = "Arial", AxisLabelSize = "12";
    std::array<std::int32_t, 8> MarkerStyle{}, Red{}, Green{}, Blue{}; ///< By chart column; 0 is not used.
    std::string LegendPosition = "0"; ///< "0" top left, "1" top, "2" top right.
    std::string WindowName;
};

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;

    bool operator==(const Colour&) const = default;
};

enum class ChartStyle { Scatter, Bar, Line, Area, Step, Pie };

/// What a histogram shows: one or two samples over common bins.
struct HistogramRequest {
    std::string title, windowTitle = "Histogram";
    std::int32_t bins = 10;
    SharedColumn x = {}, y = {}; ///< Null: not shown. Not empty otherwise.
    bool accumulated = false, percentage = false, twoDimensional = true;
    ChartStyle style = ChartStyle::Bar;
    std::array<Colour, 2> colours{Colour{255, 128, 0}, Colour{0, 128, 192}};
};

/// A chart as it was asked for.
using ChartRequest = std::variant<PlotRequest, HistogramRequest>;

} // namespace corvane
