#include "analyses/residual_limits.h"

#include "stats/residual_limits.h"

namespace corvane {
namespace {

void SetIfMissing(double& limit, double value) {
    if (limit == 0)
        limit = value;
}

} // namespace

void SetMissingLimits(RunState& run) {
    SessionState& session = run.session;
    if (session.DeviationLower == 0 && session.DeviationUpper == 0) {
        run.Statement([&] {
            const auto size = stats::AcceptableDeviation(session.DeviationCIProb, run.pairs.SDY, run.N());
            if (!size)
                throw RunFailure("overflow of the deviation limit");
            session.DeviationLower = -*size;
        });
        session.DeviationUpper = -session.DeviationLower;
    }
    SetIfMissing(session.ResidueLower, -0.1 * run.pairs.MeanY);
    SetIfMissing(session.ResidueUpper, 0.1 * run.pairs.MeanY);
    SetIfMissing(session.RStdtResLower, -2.5);
    SetIfMissing(session.RStdtResUpper, 2.5);
}

} // namespace corvane
