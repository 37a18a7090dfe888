#include "analyses/regression.h"

#include "stats/distributions.h"

#include <string>

namespace corvane {
namespace {

constexpr Place leastSquares[] = {
    {"a", "regression.intercept", "Estimate a ± SD : "},
    {"SDa", "regression.intercept.sd", " ± "},
    {"b", "regression.slope", "Estimate b ± SD : "},
    {"SDb", "regression.slope.sd", " ± "},
    {"MSE", "regression.mse", "MSE             : "},
    {"RootMSE", "regression.rmse", "          Root MSE            : "},
    {"N", "pairs.count", "N               : ", 10, 0},
    {"r", "correlation.pearson", "          r                   : "},
    {"RSquared", "regression.r_squared", "r²              : "},
    {"AdjRSquared", "regression.r_squared.adjusted", "          Adj. r²             : "},
    {"ResistantR2", "regression.r_squared.resistant", "Resistant r²    : "},
    {"AdjResistantR2", "regression.r_squared.resistant.adjusted", "          Adj. Resistant r²   : "},
    {"Chi2", "regression.chi2", "Chi²            : "},
    {"Q", "regression.chi2.q", "          Q(Chi²)             : ", 10, 5, Look::Probability},
};

constexpr Place leastAbsoluteDeviations[] = {
    {"a", "regression.intercept", "Estimate a         : "},
    {"b", "regression.slope", "Estimate b         : "},
    {"AbsDev", "regression.absolute_deviation", "Absolute Deviation : "},
    {"N", "pairs.count", "N                  : ", 10, 0},
    {"ResistantR2", "regression.r_squared.resistant", "Resistant r²       : "},
    {"AdjResistantR2", "regression.r_squared.resistant.adjusted", "          Adj. Resistant r²   : "},
    {"Chi2", "regression.chi2", "Chi²               : "},
    {"Q", "regression.chi2.q", "          Q(Chi²)             : ", 10, 5, Look::Probability},
};

void WriteLeastSquares(RunState& run, ReportSection& section) {
    const auto row = [&](auto&& write) { run.Statement(write); };
    row([&] { section.Row({{"a", run.a}, {"SDa", run.SDa}}); });
    row([&] { section.Row({{"b", run.b}, {"SDb", run.SDb}}); });
    row([&] { section.Row({{"MSE", run.residuals.MSE}, {"RootMSE", run.residuals.RootMSE}}); });
    row([&] { section.Row({{"N", run.N()}, {"r", run.pearson.r}}); });
    row([&] { section.Row({{"RSquared", run.pearson.RSquared}, {"AdjRSquared", run.pearson.AdjRSquared}}); });
    row([&] {
        section.Row(
            {{"ResistantR2", run.resistant.ResistantR2}, {"AdjResistantR2", run.resistant.AdjResistantR2}});
    });
    row([&] { section.Row({{"Chi2", run.Chi2}, {"Q", run.Q}}); });
}

void WriteLeastAbsoluteDeviations(RunState& run, ReportSection& section) {
    const auto row = [&](auto&& write) { run.Statement(write); };
    row([&] { section.Row({{"a", run.a}}); });
    row([&] { section.Row({{"b", run.b}}); });
    row([&] { section.Row({{"AbsDev", run.AbsDev}}); });
    row([&] { section.Row({{"N", run.N()}, "          "}); });
    row([&] {
        section.Row(
            {{"ResistantR2", run.resistant.ResistantR2}, {"AdjResistantR2", run.resistant.AdjResistantR2}});
    });
    row([&] { run.Q = stats::GammaQ(0.5 * (run.N() - 2), 0.5 * run.Chi2); });
    row([&] { section.Row({{"Chi2", run.Chi2}, {"Q", run.Q}}); });
}

void Write(RunState& run) {
    SectionFrame frame = RegressionSection.frame;
    if (run.Options().ROBUSTR)
        frame.places = {leastAbsoluteDeviations};
    ReportSection& section = run.report.BeginSection(frame);
    if (run.Comments()) {
        section.Note(
            "!! .Pearson's r is a parametric coefficient of correlation that measures the association of two "
            "continuous !!");
        section.Note("!!  random variables !!");
        section.Note("!! .Goodness-of-fit is believable if Q(Chi²) > 0.1 !!");
    }
    if (run.Options().ROBUSTR)
        WriteLeastAbsoluteDeviations(run, section);
    else
        WriteLeastSquares(run, section);
}

} // namespace

void TakeLine(RunState& run, const stats::LineFit& line) {
    run.a = line.a;
    run.b = line.b;
    run.SDa = line.SDa;
    run.SDb = line.SDb;
    run.Chi2 = line.Chi2;
    run.Q = line.Q;
}

bool FitRegression(RunState& run) {
    const AnalysisOptions& options = run.Options();
    const auto& [X, SDX, Y, SDY, rows, differ] = run.arrays;
    if (options.LSM) {
        TakeLine(run, stats::FitLine(X, Y, run.stop));
        run.family = stats::FitLineFamily(X, Y, run.stop);
    } else if (options.WLSM) {
        TakeLine(run, stats::FitLineXYErrors(X, Y, SDX, SDY, 1e-30, run.stop));
    } else if (options.ROBUSTR) {
        const stats::MedianFit line = stats::FitMedian(X, Y, run.stop);
        run.a = line.a;
        run.b = line.b;
        run.AbsDev = line.AbsDev;
        run.Chi2 = line.Chi2;
    } else {
        return false;
    }

    run.pairs = stats::PairStatistics(X, Y, run.stop);
    run.residuals = stats::ResidualStatistics(run.a, run.b, X, Y, run.pairs.VarX, run.pairs.MeanX,
                                              run.pairs.MeanY, run.stop);
    run.resistant = stats::ResistantRSquared(Y, run.pairs.MeanY, run.residuals.Fitted, run.stop);
    run.errors = stats::DiverseStatistics(X, Y, run.pairs.MeanX, run.pairs.MeanY, run.stop);
    run.pearson = stats::PearsonCorrelation(X, Y, run.stop);
    run.session.MeanY = run.pairs.MeanY;
    return true;
}

const SectionDefinition RegressionSection{
    .frame = {"regression",
              "REGRESSION ANALYSIS: Y = a + b×X (Neter et al., 1996)",
              {leastSquares, leastAbsoluteDeviations}},
    .meaning =
        "The line that predicts the observed values from the model's by the chosen method, with its goodness "
        "of fit.",
    .papers = "neter1996; york2004; kvalseth1985",
    .write = Write,
};

} // namespace corvane
