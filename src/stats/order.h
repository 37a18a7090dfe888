#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "stats/cancellation.h"

namespace corvane::stats {

/// Sorts the elements First to Last, counted from 1, in place and ascending; NaN goes to their end. Positions
/// outside the array are cut off. The two numbers at the end are unused. A stop leaves the elements in some
/// order.
void SortRange(std::span<double> A, std::size_t First, std::size_t Last, int = 0, int = 0,
               const std::stop_token& stop = {});

// Extremes. NaN counts as 0, infinity as the largest double with its sign; an empty array gives 0.

double ArrayMax(std::span<const double> A, const std::stop_token& stop = {});
double ArrayMin(std::span<const double> A, const std::stop_token& stop = {});
double MinOfTwo(double A, double B);
double MaxOfTwo(double A, double B);

/// The sample in ascending order, NaN and infinities made finite in the same way.
std::vector<double> SortedFinite(std::span<const double> sample, const std::stop_token& stop = {});

} // namespace corvane::stats
