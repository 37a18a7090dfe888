#include "analyses/robust_table.h"

#include "stats/robust_scale.h"

#include <vector>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"SnX", "robust.sn", "X Sn       : "},
    {"SnY", "robust.sn", "     Y Sn       : "},
    {"QnX", "robust.qn", "X Qn       : "},
    {"QnY", "robust.qn", "     Y Qn       : "},
};

void Write(RunState& run) {
    ReportSection& section = run.report.BeginSection(RobustStatisticsSection.frame);
    if (run.Comments()) {
        section.Note("!! .Sn and Qn are robust estimators of location !!");
        section.Note("!! .The closer X and Y Sn, and X and Y Qn are the more symmetric their distributions "
                     "are !!");
    }
    const std::vector<double>&X = run.SortedX(), &Y = run.SortedY();
    run.Statement([&] {
        section.Row({{"SnX", stats::RobustSn(X, run.stop)}, {"SnY", stats::RobustSn(Y, run.stop)}});
    });
    run.Statement([&] {
        section.Row({{"QnX", stats::RobustQn(X, run.stop)}, {"QnY", stats::RobustQn(Y, run.stop)}});
    });
}

} // namespace

const SectionDefinition RobustStatisticsSection{
    .frame = {"robust_statistics",
              "ROBUST STATISTICS (Croux and Rousseeuw , 1992; Rousseeuw and Croux, 1993)",
              {places}},
    .gate = {&AnalysisOptions::ROBUST_STATISTICS},
    .progress = "Robust statistics...",
    .meaning = "The spread of the predicted and of the observed values, measured so that single far values "
               "count little.",
    .papers = "croux1992; rousseeuw1993",
    .write = Write,
};

} // namespace corvane
