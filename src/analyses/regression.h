#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Fits Y = a + b X by the method that is set and computes the values that all sections share. False, and
/// nothing computed, where no method is set.
bool FitRegression(RunState& run);

/// Makes a fit the run's own line, in place of the one before.
void TakeLine(RunState& run, const stats::LineFit& line);

/// The line with its SDs, MSE, r and r², chi-square.
extern const SectionDefinition RegressionSection;

} // namespace corvane
