#pragma once

#include "run/section_definition.h"

namespace corvane {

// Plots of the residuals that a run asks for at its end.

/// Its axis of the studentized residuals is stretched where they lie close together: k = round(50 / range)
/// 10, halves to even, or 1 where that is below 10.
extern const SectionDefinition ResidualPlot;
extern const SectionDefinition DeviationPlot;
extern const SectionDefinition NormalPlot;

/// Residuals on fitted values, and deviations on X.
extern const SectionDefinition ResidueRegressionPlots;

} // namespace corvane
