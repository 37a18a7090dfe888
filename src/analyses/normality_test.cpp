#include "analyses/normality_test.h"

#include "report/transition.h"

#include "stats/edf_normality.h"
#include "stats/normality.h"
#include "stats/order.h"

namespace corvane {

void NormalityTest(ReportSection& section, std::span<const double> sample, const std::string& prefix) {
    const std::vector<double> sorted = stats::SortedFinite(sample); // once for both
    const stats::EDFResult edf = stats::EDFNormalityStatistics(sorted);
    const stats::ShapiroWilkResult shapiro = stats::ShapiroWilk(sorted);
    const auto line = [&](const char* label, const std::string& name, double statistic) {
        Line(section, label, F(10, 5, statistic).Named(prefix + name));
    };
    const auto lineWithP = [&](const char* label, const std::string& name, double statistic, double P) {
        Line(section, label, F(10, 5, statistic).Named(prefix + name),
             " (P = ", FP(6, 4, P).Named(prefix + "P_" + name), ")");
    };
    const std::string title = "Goodness-of-Fit Analyses (Davis and Stephens, 1989)";
    Line(section, title);
    Line(section, std::string(title.size(), '-'));
    line("Kolmogorov-Smirnov's D statistic : ", "D", edf.D);
    line("Kuiper's V statistic             : ", "V", edf.V);
    lineWithP("Cramér-von Mises's W2 statistic  : ", "W2", edf.W2, edf.PW2);
    lineWithP("Watson's U2 statistic            : ", "U2", edf.U2, edf.PU2);
    lineWithP("Anderson-Darling's A2 statistic  : ", "A2", edf.A2, edf.PA2);
    lineWithP("Shapiro-Wilk's W statistic       : ", "W", shapiro.W, shapiro.P);
    Line(section, "-----");
    OpenLine(section, "!! These calculations were not adjusted for Normal distribution !!");
}

} // namespace corvane
