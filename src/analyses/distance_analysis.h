#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Distances between the vectors of X and Y, Minkowski's for the orders 1 to 7.
extern const SectionDefinition DistanceAnalysisSection;

} // namespace corvane
