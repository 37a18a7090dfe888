#include "analyses/rank_analysis.h"

#include "report/transition.h"

#include "stats/kendall.h"
#include "stats/ranks.h"
#include "stats/two_sample_ranks.h"

#include <string>
#include <vector>

namespace corvane {
namespace {

constexpr const char* comments[] = {
    "!! .Spearman's r is a nonparametric coefficient of correlation that measures the rank of the data "
    "values !!",
    "!! .D is the sum squared difference of ranks !!",
    "!! .Kendall's Tau is a nonparametric coefficient of correlation that measures the association based on "
    "!!",
    "!!  the number of concordances and discordances in paired observations !!",
    "!! .KS is the Kolmogorov-Smirnov test that measures if X and Y have the same distribution !!",
    "",
};

stats::SpearmanResult Spearman(const EvaluationArrays& arrays, const AnalysisOptions& options) {
    return stats::SpearmanRank(arrays.X, arrays.Y, IsSet(options.InvertXRanks), IsSet(options.InvertYRanks));
}

void WriteRankColumns(DataMatrix& cells, const stats::SpearmanResult& ranks) {
    const std::size_t count = ranks.Order.size();
    std::vector<double> rankX(count), rankY(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto pair = static_cast<std::size_t>(ranks.Order[i]) - 1;
        rankX[pair] = ranks.RankX[i];
        rankY[pair] = ranks.RankY[i];
    }
    std::size_t pair = 0;
    for (std::int32_t row = 1; row <= cells.RowCount() && pair < count; ++row) {
        if (RowIsExcluded(cells, row)) {
            cells.Set(ColumnRankX, row, ".");
            cells.Set(ColumnRankY, row, ".");
        } else {
            cells.Set(ColumnRankX, row, rankX[pair]);
            cells.Set(ColumnRankY, row, rankY[pair]);
            ++pair;
        }
    }
}

} // namespace

void WriteRankAnalysis(RunState& run) {
    const std::vector<double>&X = run.arrays.X, &Y = run.arrays.Y;
    const stats::SpearmanResult spearman = Spearman(run.arrays, run.Options());
    ReportSection& section =
        run.report.BeginSection({"rank_analysis", "RANK ANALYSIS - NONPARAMETRICS (Agresti, 1996, 2002)"});
    if (run.Comments())
        for (const char* comment : comments)
            Line(section, comment);

    run.Statement([&] {
        Line(section, "Spearman's r : ", F(10, 5, spearman.rs).Named("rs"),
             "     H0: r = 0, T-value (P-value)          : ", F(10, 5, spearman.T).Named("T_rs"), " (",
             FP(10, 5, spearman.P2).Named("P_rs"), ")");
    });
    run.Statement([&] {
        Line(section, "D            : ", F(10, 1, spearman.D).Named("D"),
             "     H0: D = 0, Z-value (P-value)          : ", F(10, 5, spearman.Z).Named("Z_D"), " (",
             FP(10, 5, spearman.P).Named("P_D"), ")");
    });
    run.Statement([&] {
        const stats::KendallResult kendall = stats::KendallTau(X, Y);
        Line(section, "Tau          : ", F(10, 5, kendall.Tau).Named("Tau"),
             "     H0: Tau = 0, Z-value (P-value)        : ", F(10, 5, kendall.Z).Named("Z_Tau"), " (",
             FP(10, 5, kendall.P).Named("P_Tau"), ")");
    });
    run.Statement([&] {
        const stats::KolmogorovSmirnovResult smirnov =
            stats::KolmogorovSmirnov2(run.SortedX(), run.SortedY());
        Line(section, "KS           : ", F(10, 5, smirnov.D).Named("KS"),
             "     H0: dX = dY, N-value (P-value)        : ", F(10, 5, smirnov.NValue).Named("N_KS"), " (",
             FP(10, 5, smirnov.P).Named("P_KS"), ")");
    });
    run.Statement([&] {
        const stats::MannWhitneyResult whitney = stats::MannWhitney(run.SortedX(), run.SortedY());
        Line(section, "Mann-Whitney : ", F(10, 5, whitney.WD).Named("WD"),
             "     H0: WD = 0, Z-value (1-sided P-value) : ", F(10, 5, whitney.Z).Named("Z_WD"), " (",
             FP(10, 5, whitney.OneSidedP).Named("OneSidedP_WD"), ")");
    });
    WriteRankColumns(run.dataset.cells, spearman);
    run.ranked = true;
}

void FillRanks(Dataset& dataset) {
    WriteRankColumns(dataset.cells, Spearman(SelectRows(dataset.cells), dataset.options));
}

} // namespace corvane
