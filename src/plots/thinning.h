#pragma once

#include "plots/axis_scale.h"

#include <cstddef>
#include <vector>

namespace corvane {

/// The points of a series that are worth painting on a grid of width by height dots: those within the scales,
/// and of all that fall on one dot the first. So a million points cost no more than the dots of the picture.
std::vector<std::size_t> VisiblePoints(const ChartSeries& series, const ChartScales& scales, int width,
                                       int height);

} // namespace corvane
