#pragma once

#include "core/format/shared_column.h"
#include "plots/chart_kind.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;

    bool operator==(const Colour&) const = default;
};

enum class ChartStyle { Scatter, Bar, Line, Area, Step, Pie };

/// Dataset rows, counted from 1, which several series may have in common.
using SharedRows = std::shared_ptr<const std::vector<std::int32_t>>;

enum class Marker { None, Dot, Cross, Circle, Square, Diamond, Triangle, Plus, Star };

/// One series: points (x, y) of a scatter plot, or the heights y of a histogram's categories. NaN is a gap.
struct ChartSeries {
    std::string name; ///< In the legend; empty: not there.
    SharedColumn x = {}, y = {};
    SharedRows rows = {}; ///< The row of each point; null where its points are no rows, as bins and lines.
    bool line = false;
    Marker marker = Marker::None;
    std::int32_t markerSize = 0; ///< In twentieths of a point.
    Colour colour = {};
    std::map<std::size_t, std::string> labels = {}; ///< Texts beside points, by their place in the series.
};

/// One axis as it is asked for; AxisScale is what comes of it.
struct ChartAxis {
    std::string title;
    std::string titleFont = "Arial", labelFont = "Arial";
    double titleSize = 10, labelSize = 12; ///< In points.
    std::string labelFormat = {}; ///< A picture of "#", "0" and "."; empty: as many digits as the steps need.
    bool automatic = true;
    double minimum = 0, maximum = 1, majorStep = 0; ///< Where not automatic; step 0: chosen.
    bool logarithmic = false;
    bool wholeNumbers = false;                            ///< Of counts: no tick between two whole numbers.
    double end = std::numeric_limits<double>::infinity(); ///< Where an automatic axis ends that would go on.
    bool gridlines = false;
};

/// The five lines that can be drawn for each series.
struct StatisticLineOptions {
    bool showTrend = false, showMax = false, showMin = false, showSD = false, showMean = false;
    Colour colour{0, 158, 115};
    double width = 1; ///< In pixels.
};

/// Where the legend is above the plot.
enum class LegendPlace { TopLeft, Top, TopRight };

/// What separates the ranges of two bins, and where a line may end.
inline constexpr std::string_view rangeGap = "     ";

/// The size of a picture in pixels of 1/96 inch.
struct ChartSize {
    int width = 800, height = 600;
};

/// A chart with everything that its window's boxes change, without a word of how it is painted.
struct ChartModel {
    ChartKind kind = ChartKind::Scatter;
    std::string windowCaption;
    ChartStyle style = ChartStyle::Scatter;
    bool threeDimensional = false;
    std::string font = "Arial"; ///< Of all texts that have none of their own.
    std::string title, titleFont = "Arial";
    double titleSize = 14;
    std::string footnote, footnoteFont = "Arial";
    double footnoteSize = 8;
    std::string rangesText;              ///< Of a histogram: what its bins are, with a rangeGap between two.
    std::vector<std::string> categories; ///< Of a histogram.
    std::vector<ChartSeries> series;
    ChartAxis xAxis{.title = "X (Predicted)"}, yAxis{.title = "Y (Observed)"};
    bool sharedScale = false; ///< Both axes have one fixed scale, as far as logarithmic ones allow.
    bool legend = false;
    LegendPlace legendPlace = LegendPlace::TopLeft;

    // The boxes of the window.
    bool plotShadow = false, wallFrame = true, areaShadow = false, areaColour = false, plotColour = false;
    bool statistics = false;
    StatisticLineOptions statisticLines;
};

} // namespace corvane
