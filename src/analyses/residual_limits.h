#pragma once

#include "run/run_state.h"

namespace corvane {

/// The limits of influence that depend on the number of pairs alone.
struct InfluenceLimits {
    double Leverage = 0; ///< 2 p / N
    double DFFITS = 0;   ///< 2 sqrt(p / N)
};

/// For the two parameters of a line.
InfluenceLimits InfluenceLimitsOf(double N);

/// Gives every session limit that is not set its value for this run. It then holds for later runs, also of
/// other data: the deviations within z sqrt(VarY / N), z the one-sided normal quantile of DeviationCIProb;
/// the residuals within a tenth of the mean of Y; RStdtRes within 2.5. Failures are noted in the section.
void SetMissingLimits(RunState& run, ReportSection& section);

} // namespace corvane
