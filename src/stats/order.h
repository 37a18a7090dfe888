#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace corvane::stats {

/// Sorts the elements First to Last, counted from 1, in place and ascending; NaN goes to their end. Positions
/// outside the array are cut off. The last two arguments are unused.
void SortRange(std::span<double> A, std::size_t First, std::size_t Last, int = 0, int = 0);

// Extremes. NaN counts as 0, infinity as the largest double with its sign; an empty array gives 0.

double ArrayMax(std::span<const double> A);
double ArrayMin(std::span<const double> A);
double MinOfTwo(double A, double B);
double MaxOfTwo(double A, double B);

/// Sorts, at the price of one pass where the values are in order already.
void SortUnlessSorted(std::vector<double>& values);

/// The sample in ascending order, NaN and infinities made finite in the same way.
std::vector<double> SortedFinite(std::span<const double> sample);

} // namespace corvane::stats
