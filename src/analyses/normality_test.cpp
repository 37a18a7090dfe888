#include "analyses/normality_test.h"

#include "stats/edf_normality.h"
#include "stats/normality.h"
#include "stats/order.h"

#include <vector>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"*D", "normality.kolmogorov_smirnov.d", "Kolmogorov-Smirnov's D statistic : "},
    {"*V", "normality.kuiper.v", "Kuiper's V statistic             : "},
    {"*W2", "normality.cramer_von_mises.w2", "Cramér-von Mises's W2 statistic  : "},
    {"*P_W2", "normality.cramer_von_mises.p", " (P = ", 6, 4, Look::Probability},
    {"*U2", "normality.watson.u2", "Watson's U2 statistic            : "},
    {"*P_U2", "normality.watson.p", " (P = ", 6, 4, Look::Probability},
    {"*A2", "normality.anderson_darling.a2", "Anderson-Darling's A2 statistic  : "},
    {"*P_A2", "normality.anderson_darling.p", " (P = ", 6, 4, Look::Probability},
    {"*W", "normality.shapiro_wilk.w", "Shapiro-Wilk's W statistic       : "},
    {"*P_W", "normality.shapiro_wilk.p", " (P = ", 6, 4, Look::Probability},
};

} // namespace

std::span<const Place> NormalityPlaces() {
    return places;
}

void NormalityTest(ReportSection& section, std::span<const double> sample, const std::string& prefix) {
    const std::vector<double> sorted = stats::SortedFinite(sample); // once for both
    const stats::EDFResult edf = stats::EDFNormalityStatistics(sorted);
    const stats::ShapiroWilkResult shapiro = stats::ShapiroWilk(sorted);
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
