#include "analyses/moment_table.h"

#include "stats/moment_statistics.h"

namespace corvane {
namespace {

using Moments = stats::MomentStatisticsResult;

constexpr Place places[] = {
    {"AbsMeanX", "moments.mean_absolute", "X Abs Mean : "},
    {"AbsMeanY", "moments.mean_absolute", "     Y Abs Mean : "},
    {"MinX", "moments.minimum", "X Min      : "},
    {"MinY", "moments.minimum", "     Y Min      : "},
    {"MaxX", "moments.maximum", "X Max      : "},
    {"MaxY", "moments.maximum", "     Y Max      : "},
    {"MeanX", "moments.mean", "X Mean     : "},
    {"MeanY", "moments.mean", "     Y Mean     : "},
    {"MedianX", "moments.median", "X Median   : "},
    {"MedianY", "moments.median", "     Y Median   : "},
    {"VarX", "moments.variance", "X Variance : "},
    {"VarY", "moments.variance", "     Y Variance : "},
    {"StdDevX", "moments.sd", "X Std. Dev.: "},
    {"StdDevY", "moments.sd", "     Y Std. Dev.: "},
    {"SkewnessX", "moments.skewness", "X Skewness : "},
    {"SkewnessY", "moments.skewness", "     Y Skewness : "},
    {"KurtosisX", "moments.kurtosis", "X Kurtosis : "},
    {"KurtosisY", "moments.kurtosis", "     Y Kurtosis : "},
    {"MeanDiff", "moments.difference.mean", "X - Y Mean : "},
    {"VarDiff", "moments.difference.variance", "     X - Y Var  : "},
    {"CovXY", "moments.covariance", "Covariance : "},
};

void Write(RunState& run) {
    const Moments x = stats::MomentStatistics(run.arrays.X, run.stop),
                  y = stats::MomentStatistics(run.arrays.Y, run.stop);
    stats::PairSummary& pairs = run.pairs;
    pairs.MeanX = x.Mean;
    pairs.VarX = x.Variance;
    pairs.MeanY = y.Mean;
    pairs.VarY = y.Variance;

    ReportSection& section = run.report.BeginSection(MomentsSection.frame);
    section.Row({{"AbsMeanX", x.AbsMean}, {"AbsMeanY", y.AbsMean}});
    section.Row({{"MinX", x.Min}, {"MinY", y.Min}});
    section.Row({{"MaxX", x.Max}, {"MaxY", y.Max}});
    section.Row({{"MeanX", x.Mean}, {"MeanY", y.Mean}});
    section.Row({{"MedianX", x.Median}, {"MedianY", y.Median}});
    section.Row({{"VarX", x.Variance}, {"VarY", y.Variance}});
    section.Row({{"StdDevX", x.SD}, {"StdDevY", y.SD}});
    section.Row({{"SkewnessX", x.Skewness}, {"SkewnessY", y.Skewness}});
    section.Row({{"KurtosisX", x.Kurtosis}, {"KurtosisY", y.Kurtosis}});
    section.Row({{"MeanDiff", pairs.MeanDiff}, {"VarDiff", pairs.VarDiff}});
    section.Row({{"CovXY", pairs.CovXY}});
}

} // namespace

const SectionDefinition MomentsSection{
    .frame = {"moments", "MOMENT ANALYSES (Neter et al., 1996)", {places}},
    .gate = {&AnalysisOptions::MOMENT_STATISTIC},
    .progress = "Moments...",
    .meaning = "Where the predicted and the observed values lie, and how they spread around it.",
    .papers = "neter1996; joanes1998",
    .write = Write,
};

} // namespace corvane
