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

void AddLinearTicks(AxisScale& scale, bool wholeNumbers) {
    scale.major = Multiples(scale.minimum, scale.maximum, scale.majorStep);
    // A step of 2 times a power of ten is halved twice, the others fall into five.
    const double digits = scale.majorStep / std::pow(10.0, std::floor(std::log10(scale.majorStep) + 1e-9));
    double parts = std::fabs(digits - 2) < 0.1 ? 4 : 5;
    if (wholeNumbers)
        parts = std::min(parts, scale.majorStep);
    for (const double place : Multiples(scale.minimum, scale.maximum, scale.majorStep / parts))
        if (std::ranges::none_of(scale.major,
                                 [&](double at) { return std::fabs(at - place) < 1e-6 * scale.majorStep; }))
            scale.minor.push_back(place);
}

void AddLogarithmicTicks(AxisScale& scale) {
    const int first = static_cast<int>(std::floor(std::log10(scale.minimum) + 1e-9));
    const int last = static_cast<int>(std::ceil(std::log10(scale.maximum) - 1e-9));
    const int every = std::max(1, (last - first) / 8);
    constexpr double fewPowers = 100;
    const bool narrow = scale.maximum <= fewPowers * scale.minimum;
    const int lastDigit = every == 1 ? 9 : 1; // over many decades the powers alone are dense enough
    const int everyMinor = std::max(1, every / 5);
    for (int exponent = first; exponent <= last; ++exponent)
        for (int digit = 1; digit <= lastDigit; ++digit) {
            const double place = digit * std::pow(10.0, exponent);
            if (place < scale.minimum * (1 - 1e-9) || place > scale.maximum * (1 + 1e-9))
                continue;
            const bool labelled =
                digit == 1 ? (exponent - first) % every == 0 : narrow && (digit == 2 || digit == 5);
            if (labelled)
                scale.major.push_back(place);
            else if ((exponent - first) % everyMinor == 0)
                scale.minor.push_back(place);
        }
}

AxisScale LinearScale(const ChartAxis& axis, Extent extent, bool withZero) {
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
        constexpr double room = 0.02; // above a bar
        const double top = withZero && high < axis.end ? high + room * (high - low) : high;
        scale.majorStep = std::max(NiceStep(top - low), axis.wholeNumbers ? 1.0 : 0.0);
        constexpr double slack = 1e-9; // so that rounding adds no step to an end that lies on one
        scale.minimum = std::min(low, scale.majorStep * std::floor(low / scale.majorStep + slack));
        scale.maximum = std::max(top, scale.majorStep * std::ceil(top / scale.majorStep - slack));
        if (high <= axis.end)
            scale.maximum = std::min(scale.maximum, axis.end);
    } else {
        scale.minimum = axis.minimum;
        scale.maximum = axis.maximum > axis.minimum ? axis.maximum : axis.minimum + 1;
        scale.majorStep = axis.majorStep > 0 ? axis.majorStep : NiceStep(scale.maximum - scale.minimum);
    }
    AddLinearTicks(scale, axis.wholeNumbers);
    return scale;
}

/// The ends of an automatic logarithmic axis: 1, 2 or 5 times a power of ten.
Extent LogarithmicEnds(const Extent& extent) {
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
    constexpr double slack = 1e-9;
    return {atLeast(extent.minimum * (1 + slack), false), atLeast(extent.maximum * (1 - slack), true)};
}

AxisScale LogarithmicScale(const ChartAxis& axis, const Extent& extent) {
    const bool fixed = !axis.automatic && axis.minimum > 0 && axis.maximum > axis.minimum;
    constexpr double least = 1e-308; // below it powers of ten lose their digits
    const Extent shown = fixed
                             ? Extent{axis.minimum, axis.maximum}
                             : Extent{std::max(extent.minimum, least), std::max(extent.maximum, 10 * least)};
    // Over less than a decade there are hardly any powers of ten to label: steps serve better.
    constexpr double decade = 10;
    if (shown.maximum < decade * shown.minimum) {
        AxisScale scale = LinearScale(axis, shown, false);
        scale.logarithmic = true;
        if (scale.minimum > 0)
            return scale;
    }
    Extent ends = fixed ? shown : LogarithmicEnds(shown);
    ends.minimum = std::max(ends.minimum, least);
    AxisScale scale;
    scale.logarithmic = true;
    scale.minimum = ends.minimum;
    scale.maximum = ends.maximum;
    AddLogarithmicTicks(scale);
    return scale;
}

/// A number with one digit before its point, as "2.5E+07", and so many digits at most.
std::string Scientific(double value, int digits) {
    char text[40];
    const auto end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, digits - 1).ptr;
    const std::string_view whole(text, static_cast<std::size_t>(end - text));
    const std::size_t exponent = whole.find('e');
    std::string mantissa(whole.substr(0, exponent));
    if (mantissa.find('.') != std::string::npos)
        mantissa.erase(mantissa.find_last_not_of('0') + 1);
    if (mantissa.back() == '.')
        mantissa.pop_back();
    return value == 0 ? "0" : mantissa + "E" + std::string(whole.substr(exponent + 1));
}

/// The decimals of a step and of its multiples.
int DecimalsOf(double step) {
    constexpr int most = 15;
    int decimals = 0;
    for (double stretched = step; decimals < most; ++decimals, stretched *= 10)
        if (std::round(stretched) >= 1 && std::fabs(stretched - std::round(stretched)) < 1e-9 * stretched)
            break;
    return decimals;
}

} // namespace

PointExtents ExtentsOf(const ChartSeries& series, bool logarithmicX, bool logarithmicY) {
    PointExtents extents;
    const auto grow = [](std::optional<Extent>& extent, double value) {
        if (!extent)
            extent = {value, value};
        extent->minimum = std::min(extent->minimum, value);
        extent->maximum = std::max(extent->maximum, value);
    };
    const auto isShown = [](double value, bool logarithmic) {
        return std::isfinite(value) && (!logarithmic || value > 0);
    };
    for (std::size_t i = 0; i < series.y->size(); ++i) {
        const double x = series.x ? (*series.x)[i] : static_cast<double>(i + 1), y = (*series.y)[i];
        if (!isShown(x, logarithmicX) || !isShown(y, logarithmicY))
            continue;
        grow(extents.x, x);
        grow(extents.y, y);
    }
    return extents;
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
    if (scale.majorStep == 0) // powers of ten
        return scale.maximum >= 1e7 || scale.minimum < 1e-4 ? Scientific(value, 1) : NumberText(value);
    const double largest = std::max(std::fabs(scale.minimum), std::fabs(scale.maximum));
    const int decimals = DecimalsOf(scale.majorStep);
    if (largest >= 1e7 || scale.majorStep < 1e-5) {
        // All digits that tell one label from the next; in plain digits where that is no longer.
        const int size = static_cast<int>(std::floor(std::log10(largest)));
        constexpr int most = 17, exponentPart = 4;
        const int digits =
            std::clamp(size - static_cast<int>(std::floor(std::log10(scale.majorStep))) + 1, 1, most);
        const int plain = std::max(size, 0) + 1 + decimals + (decimals > 0);
        if (size >= 15 || plain > digits + (digits > 1) + exponentPart)
            return Scientific(value, digits);
    }
    const std::string picture =
        decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
    return FormatPicture(CellValue(value), picture).value_or("");
}

ChartScales ScalesOf(const ChartModel& chart) {
    std::optional<Extent> across, up;
    const auto join = [](std::optional<Extent>& all, const std::optional<Extent>& one) {
        if (all && one)
            all = {std::min(all->minimum, one->minimum), std::max(all->maximum, one->maximum)};
        else if (one)
            all = one;
    };
    const bool points = chart.style == ChartStyle::Scatter;
    for (const ChartSeries& series : chart.series) {
        const PointExtents extents =
            ExtentsOf(series, points && chart.xAxis.logarithmic, chart.yAxis.logarithmic);
        join(across, extents.x);
        join(up, extents.y);
    }
    ChartScales scales;
    scales.y = ScaleOf(chart.yAxis, up.value_or(Extent{0, 1}), !points);
    if (points) {
        scales.x = ScaleOf(chart.xAxis, across.value_or(Extent{0, 1}));
    } else {
        const double count = static_cast<double>(chart.categories.size());
        scales.x.minimum = 0.5;
        scales.x.maximum = count + (chart.threeDimensional ? 0.9 : 0.5); // depth goes to the right
        scales.x.majorStep = 1;
    }
    return scales;
}

void ShareScale(ChartModel& chart) {
    chart.sharedScale = true;
    chart.xAxis.automatic = chart.yAxis.automatic = true;
    const ChartScales scales = ScalesOf(chart);
    const double minimum = std::min(scales.x.minimum, scales.y.minimum);
    const double maximum = std::max(scales.x.maximum, scales.y.maximum);
    if ((scales.x.logarithmic || scales.y.logarithmic) && minimum <= 0)
        return;
    constexpr double mostSteps = 12; // beyond that the labels of two ranges far apart would overlap
    double step = std::max(scales.x.majorStep, scales.y.majorStep);
    if (maximum - minimum > mostSteps * step)
        step = NiceStep(maximum - minimum);
    for (ChartAxis* axis : {&chart.xAxis, &chart.yAxis}) {
        axis->minimum = minimum;
        axis->maximum = maximum;
        axis->majorStep = step;
        axis->automatic = false;
    }
}

} // namespace corvane
