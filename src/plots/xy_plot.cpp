#include "plots/xy_plot.h"

#include "core/format/numbers.h"
#include "plots/axis_scale.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

std::int32_t MarkerSize(std::int32_t points) {
    return points < 50 ? 200 : points < 100 ? 150 : 100;
}

/// The two marker styles in use.
Marker MarkerOf(std::int32_t style) {
    constexpr std::int32_t cross = 12;
    return style == cross ? Marker::Cross : Marker::Dot;
}

LegendPlace LegendPlaceOf(const std::string& position) {
    const double number = LeadingNumber(position);
    return number == 1 ? LegendPlace::Top : number == 2 ? LegendPlace::TopRight : LegendPlace::TopLeft;
}

bool HasValues(const SharedColumn& column) {
    return column && std::ranges::any_of(*column, [](double value) { return std::isfinite(value); });
}

ChartAxis Axis(const PlotRequest& request, const std::string& title) {
    ChartAxis axis;
    axis.title = title;
    axis.titleFont = request.AxisTitleFont;
    axis.labelFont = request.AxisLabelFont;
    axis.titleSize = LeadingNumber(request.AxisTitleSize);
    axis.labelSize = LeadingNumber(request.AxisLabelSize);
    return axis;
}

} // namespace

ChartModel CreateXYPlot(const PlotRequest& request) {
    constexpr std::size_t points = 3, equality = 4, equalityColour = 5, excludedX = 6, excluded = 7;
    const auto column = [&](std::size_t number) {
        return number <= request.ChartData.size() ? request.ChartData[number - 1] : SharedColumn();
    };
    const auto colour = [&](std::size_t number) {
        const auto part = [](std::int32_t value) {
            return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
        };
        return Colour{part(request.Red[number]), part(request.Green[number]), part(request.Blue[number])};
    };
    const auto pointSeries = [&](const char* name, std::size_t x, std::size_t y) {
        return ChartSeries{.name = name,
                           .x = column(x),
                           .y = column(y),
                           .marker = MarkerOf(request.MarkerStyle[y]),
                           .markerSize = MarkerSize(request.PointCount),
                           .colour = colour(y)};
    };

    ChartModel chart;
    chart.windowCaption = "Plot - " + request.WindowName;
    chart.title = request.Title;
    chart.titleSize = LeadingNumber(request.TitleSize);
    chart.titleFont = request.TitleFont;
    chart.footnote = request.Footnote;
    chart.footnoteFont = request.FootnoteFont;
    chart.footnoteSize = LeadingNumber(request.FootnoteSize);
    chart.xAxis = Axis(request, request.XAxisTitle);
    chart.yAxis = Axis(request, request.YAxisTitle);
    chart.legendPlace = LegendPlaceOf(request.LegendPosition);
    chart.legend = request.ColumnCount > static_cast<std::int32_t>(points);
    chart.series.push_back(pointSeries(chart.legend ? "Obs" : "", 1, points));
    if (HasValues(column(equality)))
        chart.series.push_back({.name = "Y=X",
                                .x = column(1),
                                .y = column(equality),
                                .line = true,
                                .colour = colour(equalityColour)});
    if (request.ColumnCount >= static_cast<std::int32_t>(excluded))
        chart.series.push_back(pointSeries("Excluded", excludedX, excluded));
    if (request.SameScale)
        ShareScale(chart);
    return chart;
}

} // namespace corvane
