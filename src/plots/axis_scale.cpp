#include "plots/axis_scale.h"

#include "core/format/format_picture.h"
#include "core/format/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace corvane {
namespace {

constexpr double fewestSteps = 4;

/// The largest of 1, 2 and 5 times a power of ten that divides the range into at least four steps.
double NiceStep(double range) {
    const double rough = range / fewestSteps;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double digit : {5.0, 2.0})
        if (digit * power <= rough)
            return digit * power;
    return power;
}

/// Multiples of the step in the range, which are counted so that no rounding error gathers.
std::vector<double> Multiples(double minimum, double maximum, double step) {
    std::vector<double> places;
    const double slack = 1e-9 * step;
    const double first = std::ceil((minimum - slack) / step);
    for (double k = first; k * step <= maximum + slack && places.size() < 1000; ++k)
        places.push_back(k == 0 ? 0.0 : k * step);
    return places;
}

void AddLinearTicks(AxisScale& scale) {
    scale.major = Multiples(scale.minimum, scale.maximum, scale.majorStep);
    // A step of 2 times a power of ten is halved twice, the others fall into five.
    const double digits = scale.majorStep / std::pow(10.0, std::floor(std::log10(scale.majorStep) + 1e-9));
    const double parts = std::fabs(digits - 2) < 0.1 ? 4 : 5;
    for (const double place : Multiples(scale.minimum, scale.maximum, scale.majorStep / parts))
        if (std::ranges::none_of(scale.major,
                                 [&](double at) { return std::fabs(at - place) < 1e-6 * scale.majorStep; }))
            scale.minor.push_back(place);
}

void AddLogarithmicTicks(AxisScale& scale) {
    const int first = static_cast<int>(std::floor(std::log10(scale.minimum) + 1e-9));
    const int last = static_cast<int>(std::ceil(std::log10(scale.maximum) - 1e-9));
    const int every = std::max(1, (last - first) / 8);
    const bool narrow = last - first <= 2;
    for (int exponent = first; exponent <= last; ++exponent)
        for (int digit = 1; digit <= 9; ++digit) {
            const double place = digit * std::pow(10.0, exponent);
            if (place < scale.minimum * (1 - 1e-9) || place > scale.maximum * (1 + 1e-9))
                continue;
            const bool labelled =
                digit == 1 ? (exponent - first) % every == 0 : narrow && (digit == 2 || digit == 5);
            (labelled ? scale.major : scale.minor).push_back(place);
        }
}

AxisScale LinearScale(const ChartAxis& axis, Extent extent, bool withZero) {
    constexpr double room = 0.02;
    AxisScale scale;
    constexpr double farthest = 1e307; // what lies beyond has no room for steps
    double low = std::clamp(extent.minimum, -farthest, farthest);
    double high = std::clamp(extent.maximum, -farthest, farthest);
    if (axis.automatic) {
        if (withZero)
            low = std::min(low, 0.0);
        // A range that rounding leaves nothing of has no steps.
        if (!(high - low > 1e-12 * std::max(std::fabs(low), std::fabs(high)))) {
            const double half =
                low == 0 && high == 0 ? 1.0 : 0.05 * std::max(std::fabs(low), std::fabs(high));
            low -= withZero ? 0 : half;
            high += half;
        }
        const double margin = room * (high - low);
        scale.majorStep = NiceStep(high - low + 2 * margin);
        scale.minimum =
            withZero && low == 0 ? 0.0 : scale.majorStep * std::floor((low - margin) / scale.majorStep);
        scale.maximum = scale.majorStep * std::ceil((high + margin) / scale.majorStep);
    } else {
        scale.minimum = axis.minimum;
        scale.maximum = axis.maximum > axis.minimum ? axis.maximum : axis.minimum + 1;
        scale.majorStep = axis.majorStep > 0 ? axis.majorStep : NiceStep(scale.maximum - scale.minimum);
    }
    AddLinearTicks(scale);
    return scale;
}

AxisScale LogarithmicScale(const ChartAxis& axis, const Extent& extent) {
    AxisScale scale;
    scale.logarithmic = true;
    const double low = axis.automatic || axis.minimum <= 0 ? extent.minimum : axis.minimum;
    const double high = axis.automatic || axis.maximum <= low ? extent.maximum : axis.maximum;
    const auto atLeast = [](double value, bool up) {
        const double power = std::pow(10.0, std::floor(std::log10(value)));
        double best = up ? 10 * power : power;
        for (const double digit : {2.0, 5.0}) {
            const double place = digit * power;
            if (up ? place >= value && place < best : place <= value && place > best)
                best = place;
        }
        return best;
    };
    scale.minimum = atLeast(low / 1.02, false);
    scale.maximum = atLeast(high * 1.02, true);
    AddLogarithmicTicks(scale);
    return scale;
}

} // namespace

std::optional<Extent> ExtentOf(const std::vector<SharedColumn>& columns, bool logarithmic) {
    std::optional<Extent> extent;
    for (const SharedColumn& column : columns)
        for (const double value : *column) {
            if (!std::isfinite(value) || (logarithmic && value <= 0))
                continue;
            if (!extent)
                extent = {value, value};
            extent->minimum = std::min(extent->minimum, value);
            extent->maximum = std::max(extent->maximum, value);
        }
    return extent;
}

AxisScale ScaleOf(const ChartAxis& axis, const Extent& extent, bool withZero) {
    AxisScale scale = axis.logarithmic && extent.minimum > 0 ? LogarithmicScale(axis, extent)
                                                             : LinearScale(axis, extent, withZero);
    scale.labelFormat = axis.labelFormat;
    return scale;
}

std::string TickLabel(const AxisScale& scale, double value) {
    if (!scale.labelFormat.empty())
        if (const auto text = FormatPicture(CellValue(value), scale.labelFormat))
            return *text;
    const double size = std::fabs(value);
    const auto shortNumber = [](double number) {
        char digits[32];
        // What k * step has behind its tenth digit is noise.
        const auto end =
            std::to_chars(digits, digits + sizeof digits, number, std::chars_format::general, 10).ptr;
        return NumberText(LeadingNumber({digits, end}));
    };
    if (scale.logarithmic || size >= 1e7 || scale.majorStep < 1e-5)
        return shortNumber(value);
    const int decimals = std::max(0, static_cast<int>(-std::floor(std::log10(scale.majorStep) + 1e-9)));
    const std::string picture =
        decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
    return FormatPicture(CellValue(value), picture).value_or("");
}

ChartScales ScalesOf(const ChartModel& chart) {
    std::vector<SharedColumn> xs, ys;
    for (const ChartSeries& series : chart.series) {
        if (series.x)
            xs.push_back(series.x);
        ys.push_back(series.y);
    }
    ChartScales scales;
    scales.y = ScaleOf(chart.yAxis, ExtentOf(ys, chart.yAxis.logarithmic).value_or(Extent{0, 1}),
                       chart.style != ChartStyle::Scatter);
    if (chart.style == ChartStyle::Scatter) {
        scales.x = ScaleOf(chart.xAxis, ExtentOf(xs, chart.xAxis.logarithmic).value_or(Extent{0, 1}));
    } else {
        const double count = static_cast<double>(chart.categories.size());
        scales.x.minimum = 0.5;
        scales.x.maximum = count + (chart.threeDimensional ? 0.9 : 0.5); // depth goes to the right
        scales.x.majorStep = 1;
    }
    return scales;
}

void ShareScale(ChartModel& chart) {
    const ChartScales scales = ScalesOf(chart);
    for (ChartAxis* axis : {&chart.xAxis, &chart.yAxis}) {
        axis->minimum = std::min(scales.x.minimum, scales.y.minimum);
        axis->maximum = std::max(scales.x.maximum, scales.y.maximum);
        axis->majorStep = std::max(scales.x.majorStep, scales.y.majorStep);
        axis->automatic = false;
    }
}

} // namespace corvane
