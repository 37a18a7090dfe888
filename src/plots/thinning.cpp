#include "plots/thinning.h"

#include "plots/chart_operations.h"

#include <cmath>

namespace corvane {

std::vector<std::size_t> VisiblePoints(const ChartSeries& series, const ChartScales& scales, int width,
                                       int height) {
    std::vector<bool> taken(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::vector<std::size_t> visible;
    const auto within = [](double share) { return share >= 0 && share <= 1; }; // false for NaN
    for (std::size_t i = 0; i < series.y->size(); ++i) {
        const double across = Position(scales.x, (*series.x)[i]), up = Position(scales.y, (*series.y)[i]);
        if (!within(across) || !within(up))
            continue;
        const auto dot = [](double share, int dots) {
            return static_cast<std::size_t>(std::lround(share * (dots - 1)));
        };
        const std::size_t at = dot(up, height) * static_cast<std::size_t>(width) + dot(across, width);
        if (taken[at])
            continue;
        taken[at] = true;
        visible.push_back(i);
    }
    return visible;
}

} // namespace corvane
