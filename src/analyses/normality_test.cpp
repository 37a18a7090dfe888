#include "analyses/normality_test.h"

#include "stats/edf_normality.h"
#include "stats/normality.h"
#include "stats/order.h"

#include <vector>

namespace corvane {

void NormalityTest(ReportSection& section, std::span<const double> sample, const std::string& prefix,
                   const std::stop_token& stop) {
    const std::vector<double> sorted = stats::SortedFinite(sample, stop); // once for both
    const stats::EDFResult edf = stats::EDFNormalityStatistics(sorted, 2, false, stop);
    const stats::ShapiroWilkResult shapiro = stats::ShapiroWilk(sorted, stop);
    section.Heading("Goodness-of-Fit Analyses (Davis and Stephens, 1989)");
    section.Row({{"*D", edf.D, prefix}});
    section.Row({{"*V", edf.V, prefix}});
    section.Row({{"*W2", edf.W2, prefix}, {"*P_W2", edf.PW2, prefix}, ")"});
    section.Row({{"*U2", edf.U2, prefix}, {"*P_U2", edf.PU2, prefix}, ")"});
    section.Row({{"*A2", edf.A2, prefix}, {"*P_A2", edf.PA2, prefix}, ")"});
    section.Row({{"*W", shapiro.W, prefix}, {"*P_W", shapiro.P, prefix}, ")"});
    section.Rule(5);
    section.Note("!! These calculations were not adjusted for Normal distribution !!", LineEnd::Open);
}

} // namespace corvane
