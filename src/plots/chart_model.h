#pragma once

#include "core/plot_request.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

enum class Marker { None, Dot, Cross };

/// One series: points (x, y) of a scatter plot, or the heights y of a histogram's categories. NaN is a gap.
struct ChartSeries {
    std::string name; ///< In the legend; empty: not there.
    SharedColumn x = {}, y = {};
    bool line = false;
    Marker marker = Marker::None;
    std::int32_t markerSize = 0; ///< In twentieths of a point.
    Colour colour = {};
};

/// One axis as it is asked for; AxisScale is what comes of it.
struct ChartAxis {
    std::string title;
    double titleSize = 10, labelSize = 12; ///< In points.
    std::string labelFormat = {}; ///< A picture of "#", "0" and "."; empty: as many digits as the steps need.
    bool automatic = true;
    double minimum = 0, maximum = 1, majorStep = 0; ///< Where not automatic; step 0: chosen.
    bool logarithmic = false;
    bool gridlines = false;
};

/// The five lines that can be drawn for each series.
struct StatisticLineOptions {
    bool showTrend = false, showMax = false, showMin = false, showSD = false, showMean = false;
    Colour colour = {};
    double width = 1; ///< In pixels.
};

/// A chart with everything that its window's boxes change, without a word of how it is painted.
struct ChartModel {
    std::string windowCaption;
    ChartStyle style = ChartStyle::Scatter;
    bool threeDimensional = false;
    std::string font = "Arial"; ///< Of all texts.
    std::string title;
    double titleSize = 14;
    std::string footnote;
    double footnoteSize = 8;
    std::string rangesText;              ///< Of a histogram: what its bins are.
    std::vector<std::string> categories; ///< Of a histogram.
    std::vector<ChartSeries> series;
    ChartAxis xAxis, yAxis;
    bool legend = false;

    // The boxes of the window.
    bool plotShadow = false, wallFrame = true, areaShadow = false, areaColour = false, plotColour = false;
    bool statistics = false;
    StatisticLineOptions statisticLines;
};

} // namespace corvane
