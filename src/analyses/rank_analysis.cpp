#include "analyses/rank_analysis.h"

#include "stats/kendall.h"
#include "stats/ranks.h"
#include "stats/two_sample_ranks.h"

#include <vector>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"rs", "rank.spearman", "Spearman's r : "},
    {"T_rs", "rank.spearman.t", "     H0: r = 0, T-value (P-value)          : "},
    {"P_rs", "rank.spearman.p", " (", 10, 5, Look::Probability},
    {"D", "rank.d", "D            : ", 10, 1},
    {"Z_D", "rank.d.z", "     H0: D = 0, Z-value (P-value)          : "},
    {"P_D", "rank.d.p", " (", 10, 5, Look::Probability},
    {"Tau", "rank.kendall", "Tau          : "},
    {"Z_Tau", "rank.kendall.z", "     H0: Tau = 0, Z-value (P-value)        : "},
    {"P_Tau", "rank.kendall.p", " (", 10, 5, Look::Probability},
    {"KS", "rank.kolmogorov_smirnov", "KS           : "},
    {"N_KS", "rank.kolmogorov_smirnov.n", "     H0: dX = dY, N-value (P-value)        : "},
    {"P_KS", "rank.kolmogorov_smirnov.p", " (", 10, 5, Look::Probability},
    {"WD", "rank.mann_whitney", "Mann-Whitney : "},
    {"Z_WD", "rank.mann_whitney.z", "     H0: WD = 0, Z-value (1-sided P-value) : "},
    {"OneSidedP_WD", "rank.mann_whitney.p", " (", 10, 5, Look::Probability},
};

constexpr const char* comments[] = {
    "!! .Spearman's r is a nonparametric coefficient of correlation that measures the rank of the data "
    "values !!",
    "!! .D is the sum squared difference of ranks !!",
    "!! .Kendall's Tau is a nonparametric coefficient of correlation that measures the association based on "
    "!!",
    "!!  the number of concordances and discordances in paired observations !!",
    "!! .KS is the Kolmogorov-Smirnov test that measures if X and Y have the same distribution !!",
};

stats::SpearmanResult Spearman(const EvaluationArrays& arrays, const AnalysisOptions& options,
                               const std::stop_token& stop = {}) {
    return stats::SpearmanRank(arrays.X, arrays.Y, IsSet(options.InvertXRanks), IsSet(options.InvertYRanks),
                               stop);
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

void Write(RunState& run) {
    const std::vector<double>&X = run.arrays.X, &Y = run.arrays.Y;
    const stats::SpearmanResult spearman = Spearman(run.arrays, run.Options(), run.stop);
    ReportSection& section = run.report.BeginSection(RankAnalysisSection.frame);
    if (run.Comments()) {
        for (const char* comment : comments)
            section.Note(comment);
        section.Blank();
    }

    const auto row = [&](auto&& write) { run.Statement(write); };
    row([&] { section.Row({{"rs", spearman.rs}, {"T_rs", spearman.T}, {"P_rs", spearman.P2}, ")"}); });
    row([&] { section.Row({{"D", spearman.D}, {"Z_D", spearman.Z}, {"P_D", spearman.P}, ")"}); });
    row([&] {
        const stats::KendallResult kendall = stats::KendallTau(X, Y, run.stop);
        section.Row({{"Tau", kendall.Tau}, {"Z_Tau", kendall.Z}, {"P_Tau", kendall.P}, ")"});
    });
    row([&] {
        const stats::KolmogorovSmirnovResult smirnov =
            stats::KolmogorovSmirnov2(run.SortedX(), run.SortedY(), run.stop);
        section.Row({{"KS", smirnov.D}, {"N_KS", smirnov.NValue}, {"P_KS", smirnov.P}, ")"});
    });
    row([&] {
        const stats::MannWhitneyResult whitney = stats::MannWhitney(run.SortedX(), run.SortedY(), run.stop);
        section.Row({{"WD", whitney.WD}, {"Z_WD", whitney.Z}, {"OneSidedP_WD", whitney.OneSidedP}, ")"});
    });
    WriteRankColumns(run.dataset.cells, spearman);
    run.ranked = true;
}

} // namespace

void FillRanks(Dataset& dataset) {
    WriteRankColumns(dataset.cells, Spearman(SelectRows(dataset.cells), dataset.options));
}

const SectionDefinition RankAnalysisSection{
    .frame = {"rank_analysis", "RANK ANALYSIS - NONPARAMETRICS (Agresti, 1996, 2002)", {places}},
    .gate = {&AnalysisOptions::RANK_ANALYSIS},
    .progress = "Rank analysis...",
    .meaning = "Whether predicted and observed values rise together and have the same distribution, from "
               "their ranks alone.",
    .papers = "agresti1996; agresti2002",
    .write = Write,
};

} // namespace corvane
