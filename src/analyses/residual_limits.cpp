#include "analyses/residual_limits.h"

#include "stats/distributions.h"

#include <cmath>

namespace corvane {
namespace {

void SetIfMissing(double& limit, double value) {
    if (limit == 0)
        limit = value;
}

} // namespace

InfluenceLimits InfluenceLimitsOf(double N) {
    constexpr double p = 2;
    return {2 * p / N, 2 * std::sqrt(p / N)};
}

void SetMissingLimits(RunState& run, ReportSection& section) {
    SessionState& session = run.session;
    if (session.DeviationLower == 0 && session.DeviationUpper == 0) {
        section.Statement([&] {
            const double z = stats::InverseNormal(session.DeviationCIProb);
            // At a confidence of 1 z is the largest double; where the product overflows, nothing is set.
            const double lower = -z * Divide(run.pairs.SDY, SquareRoot(run.N()));
            if (!std::isfinite(lower))
                throw RunFailure("overflow of the deviation limit");
            session.DeviationLower = lower;
        });
        session.DeviationUpper = -session.DeviationLower;
    }
    SetIfMissing(session.ResidueLower, -0.1 * run.pairs.MeanY);
    SetIfMissing(session.ResidueUpper, 0.1 * run.pairs.MeanY);
    SetIfMissing(session.RStdtResLower, -2.5);
    SetIfMissing(session.RStdtResUpper, 2.5);
}

} // namespace corvane
