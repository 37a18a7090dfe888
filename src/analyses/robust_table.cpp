#include "analyses/robust_table.h"

#include "report/transition.h"

#include "stats/robust_scale.h"

namespace corvane {

void WriteRobustStatistics(RunState& run) {
    ReportSection& section = run.report.BeginSection(
        {"robust_statistics", "ROBUST STATISTICS (Croux and Rousseeuw , 1992; Rousseeuw and Croux, 1993)"});
    if (run.Comments()) {
        Line(section, "!! .Sn and Qn are robust estimators of location !!");
        Line(section, "!! .The closer X and Y Sn, and X and Y Qn are the more symmetric their distributions "
                      "are !!");
    }
    const std::vector<double>&X = run.SortedX(), &Y = run.SortedY();
    run.Statement([&] {
        Line(section, "X Sn       : ", F(10, 5, stats::RobustSn(X)).Named("SnX"),
             "     Y Sn       : ", F(10, 5, stats::RobustSn(Y)).Named("SnY"));
    });
    run.Statement([&] {
        Line(section, "X Qn       : ", F(10, 5, stats::RobustQn(X)).Named("QnX"),
             "     Y Qn       : ", F(10, 5, stats::RobustQn(Y)).Named("QnY"));
    });
}

} // namespace corvane
