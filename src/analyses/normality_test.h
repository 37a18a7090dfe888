#pragma once

#include "report/report.h"

#include <span>
#include <string>

namespace corvane {

/// The places of a NormalityTest; they go into the frame of every section that prints one.
std::span<const Place> NormalityPlaces();

/// Appends a sample's five statistics of the empirical distribution function and its Shapiro-Wilk W. The last
/// line is open: the caller ends it, or the next section's frame does. The prefix, with its dot, keeps the
/// machine names of several samples of one section apart.
void NormalityTest(ReportSection& section, std::span<const double> sample, const std::string& prefix);

} // namespace corvane
