#include "analyses/regression.h"

#include "stats/distributions.h"

#include <string>

namespace corvane {
namespace {

const std::string gap(10, ' ');

void WriteLeastSquares(RunState& run, ReportSection& section) {
    run.Statement([&] {
        section.Line("Estimate a ± SD : ", F(10, 5, run.a).Named("a"), " ± ", F(10, 5, run.SDa).Named("SDa"));
    });
    run.Statement([&] {
        section.Line("Estimate b ± SD : ", F(10, 5, run.b).Named("b"), " ± ", F(10, 5, run.SDb).Named("SDb"));
    });
    run.Statement([&] {
        section.Line("MSE             : ", F(10, 5, run.residuals.MSE).Named("MSE"), gap,
                     "Root MSE            : ", F(10, 5, run.residuals.RootMSE).Named("RootMSE"));
    });
    run.Statement([&] {
        section.Line("N               : ", F(10, 0, run.N()).Named("N"), gap,
                     "r                   : ", F(10, 5, run.pearson.r).Named("r"));
    });
    run.Statement([&] {
        section.Line("r²              : ", F(10, 5, run.pearson.RSquared).Named("RSquared"), gap,
                     "Adj. r²             : ", F(10, 5, run.pearson.AdjRSquared).Named("AdjRSquared"));
    });
    run.Statement([&] {
        section.Line(
            "Resistant r²    : ", F(10, 5, run.resistant.ResistantR2).Named("ResistantR2"), gap,
            "Adj. Resistant r²   : ", F(10, 5, run.resistant.AdjResistantR2).Named("AdjResistantR2"));
    });
    run.Statement([&] {
        section.Line("Chi²            : ", F(10, 5, run.Chi2).Named("Chi2"), gap,
                     "Q(Chi²)             : ", FP(10, 5, run.Q).Named("Q"));
    });
}

void WriteLeastAbsoluteDeviations(RunState& run, ReportSection& section) {
    run.Statement([&] { section.Line("Estimate a         : ", F(10, 5, run.a).Named("a")); });
    run.Statement([&] { section.Line("Estimate b         : ", F(10, 5, run.b).Named("b")); });
    run.Statement([&] { section.Line("Absolute Deviation : ", F(10, 5, run.AbsDev).Named("AbsDev")); });
    run.Statement([&] { section.Line("N                  : ", F(10, 0, run.N()).Named("N"), gap); });
    run.Statement([&] {
        section.Line(
            "Resistant r²       : ", F(10, 5, run.resistant.ResistantR2).Named("ResistantR2"), gap,
            "Adj. Resistant r²   : ", F(10, 5, run.resistant.AdjResistantR2).Named("AdjResistantR2"));
    });
    run.Statement([&] { run.Q = stats::GammaQ(0.5 * (run.N() - 2), 0.5 * run.Chi2); });
    run.Statement([&] {
        section.Line("Chi²               : ", F(10, 5, run.Chi2).Named("Chi2"), gap,
                     "Q(Chi²)             : ", FP(10, 5, run.Q).Named("Q"));
    });
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
        TakeLine(run, stats::FitLine(X, Y));
        run.family = stats::FitLineFamily(X, Y);
    } else if (options.WLSM) {
        TakeLine(run, stats::FitLineXYErrors(X, Y, SDX, SDY, 1e-30));
    } else if (options.ROBUSTR) {
        const stats::MedianFit line = stats::FitMedian(X, Y);
        run.a = line.a;
        run.b = line.b;
        run.AbsDev = line.AbsDev;
        run.Chi2 = line.Chi2;
    } else {
        return false;
    }

    run.pairs = stats::PairStatistics(X, Y);
    run.residuals =
        stats::ResidualStatistics(run.a, run.b, X, Y, run.pairs.VarX, run.pairs.MeanX, run.pairs.MeanY);
    run.resistant = stats::ResistantRSquared(Y, run.pairs.MeanY, run.residuals.Fitted);
    run.errors = stats::DiverseStatistics(X, Y, run.pairs.MeanX, run.pairs.MeanY);
    run.pearson = stats::PearsonCorrelation(X, Y);
    run.session.MeanY = run.pairs.MeanY;
    return true;
}

void WriteRegression(RunState& run) {
    ReportSection& section =
        run.report.BeginSection("regression", "REGRESSION ANALYSIS: Y = a + b×X (Neter et al., 1996)");
    if (run.Comments()) {
        section.Line(
            "!! .Pearson's r is a parametric coefficient of correlation that measures the association of two "
            "continuous !!");
        section.Line("!!  random variables !!");
        section.Line("!! .Goodness-of-fit is believable if Q(Chi²) > 0.1 !!");
    }
    if (run.Options().ROBUSTR)
        WriteLeastAbsoluteDeviations(run, section);
    else
        WriteLeastSquares(run, section);
}

} // namespace corvane
