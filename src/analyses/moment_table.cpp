#include "analyses/moment_table.h"

#include "report/transition.h"

#include "stats/moment_statistics.h"

#include <string>

namespace corvane {
namespace {

using Moments = stats::MomentStatisticsResult;

struct MomentRow {
    const char* label;
    const char* name;
    double Moments::*value;
};

constexpr MomentRow rows[] = {
    {"Abs Mean : ", "AbsMean", &Moments::AbsMean},   {"Min      : ", "Min", &Moments::Min},
    {"Max      : ", "Max", &Moments::Max},           {"Mean     : ", "Mean", &Moments::Mean},
    {"Median   : ", "Median", &Moments::Median},     {"Variance : ", "Var", &Moments::Variance},
    {"Std. Dev.: ", "StdDev", &Moments::SD},         {"Skewness : ", "Skewness", &Moments::Skewness},
    {"Kurtosis : ", "Kurtosis", &Moments::Kurtosis},
};

} // namespace

void WriteMoments(RunState& run) {
    const Moments x = stats::MomentStatistics(run.arrays.X), y = stats::MomentStatistics(run.arrays.Y);
    stats::PairSummary& pairs = run.pairs;
    pairs.MeanX = x.Mean;
    pairs.VarX = x.Variance;
    pairs.MeanY = y.Mean;
    pairs.VarY = y.Variance;

    ReportSection& section = run.report.BeginSection({"moments", "MOMENT ANALYSES (Neter et al., 1996)"});
    const std::string gap(5, ' ');
    for (const auto& [label, name, value] : rows)
        Line(section, std::string("X ") + label, F(10, 5, x.*value).Named(std::string(name) + "X"), gap,
             std::string("Y ") + label, F(10, 5, y.*value).Named(std::string(name) + "Y"));
    Line(section, "X - Y Mean : ", F(10, 5, pairs.MeanDiff).Named("MeanDiff"), gap,
         "X - Y Var  : ", F(10, 5, pairs.VarDiff).Named("VarDiff"));
    Line(section, "Covariance : ", F(10, 5, pairs.CovXY).Named("CovXY"));
}

} // namespace corvane
