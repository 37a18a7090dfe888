#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "rank.spearman",
        .title = "Spearman's rank correlation",
        .meaning = "It says how well the predictions put the observations in order, and near 1 is best.",
        .formula = "rs = Pearson's r of the ranks, mean ranks for ties",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "agresti1996; agresti2002",
        .others = "Spearman's rho",
        .sameIn = "R: cor(X, Y, method = \"spearman\")",
        .remark = "It turns its sign where the ranks of one side are inverted.",
    },
    {
        .key = "rank.spearman.t",
        .title = "t of Spearman's correlation",
        .meaning = "It is the test value for a rank correlation of 0, and the farther from 0 it is the "
                   "clearer the association.",
        .formula = "rs √((N - 2)/(1 - rs²))",
        .range = "any number; N - 2 degrees of freedom",
        .sign = "Observations rise with predictions.",
        .papers = "agresti1996; agresti2002",
    },
    {
        .key = "rank.spearman.p",
        .title = "P of Spearman's correlation",
        .meaning = "It is the probability of a rank correlation at least this strong if there were none, so "
                   "a small value says that the orders go together.",
        .formula = "2 P(T > |t|), N - 2 degrees of freedom",
        .range = "0 to 1",
        .papers = "agresti1996; agresti2002",
        .sameIn = "R: cor.test(X, Y, method = \"spearman\", exact = FALSE)$p.value",
    },
    {
        .key = "rank.d",
        .title = "Sum of squared rank differences",
        .meaning = "It adds up how far the predictions' ranks are from the observations', and 0 is best.",
        .formula = "D = Σ (rank(X) - rank(Y))²",
        .range = "0 or more",
        .better = Better::Lower,
        .papers = "agresti1996; agresti2002",
        .sameIn = "R: sum((rank(X) - rank(Y))^2)",
        .remark = "It is the plain sum; R's S of cor.test differs where there are ties. Its letter also "
                  "stands for the deviations and for the Kolmogorov-Smirnov distance.",
    },
    {
        .key = "rank.d.z",
        .title = "Z of the squared rank differences",
        .meaning = "It tests whether the two orders are unrelated, and far below 0 they go together.",
        .formula = "-rs √(N - 1)",
        .range = "any number",
        .sign = "Observations fall where predictions rise.",
        .papers = "agresti1996; agresti2002",
        .sameIn = "R: -coin::statistic(coin::spearman_test(Y ~ X))",
        .remark = "The label reads D = 0, but the hypothesis is that of unrelated orders, for which D is "
                  "about (N³ - N)/6.",
    },
    {
        .key = "rank.d.p",
        .title = "P of the squared rank differences",
        .meaning = "It is the probability of a sum at least this far from that of unrelated orders, so a "
                   "small value says that the orders go together or against each other.",
        .formula = "2 (1 - Φ(|Z|))",
        .range = "0 to 1",
        .papers = "agresti1996; agresti2002",
        .sameIn = "R: coin::pvalue(coin::spearman_test(Y ~ X))",
    },
    {
        .key = "rank.kendall",
        .title = "Kendall's tau",
        .meaning = "It is the surplus of pairs of rows that both samples put in the same order over those "
                   "that they do not, and near 1 is best.",
        .formula = "tau-b = S/√((n0 - tx)(n0 - ty)), S concordant less discordant pairs of rows, n0 = N (N - "
                   "1)/2, tx and ty the pairs tied in X and in Y",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "agresti1996; agresti2002",
        .others = "Kendall's tau-b",
        .sameIn = "R: cor(X, Y, method = \"kendall\"); scipy: stats.kendalltau(X, Y)",
    },
    {
        .key = "rank.kendall.z",
        .title = "Z of Kendall's tau",
        .meaning =
            "It is the test value for a tau of 0, and the farther from 0 it is the clearer the association.",
        .formula = "S/√Var(S) with the full correction for ties",
        .range = "any number",
        .sign = "Observations rise with predictions.",
        .papers = "agresti1996; agresti2002",
        .sameIn = "R: cor.test(X, Y, method = \"kendall\", exact = FALSE)$statistic",
    },
    {
        .key = "rank.kendall.p",
        .title = "P of Kendall's tau",
        .meaning = "It is the probability of a tau at least this far from 0 if it were 0, so a small value "
                   "says that the orders go together or against each other.",
        .formula = "2 (1 - Φ(|Z|))",
        .range = "0 to 1",
        .papers = "agresti1996; agresti2002",
        .sameIn = "R: cor.test(X, Y, method = \"kendall\", exact = FALSE)$p.value; scipy: "
                  "stats.kendalltau(X, Y, method=\"asymptotic\")",
    },
    {
        .key = "rank.kolmogorov_smirnov",
        .title = "Kolmogorov-Smirnov distance of two samples",
        .meaning = "It is the largest distance between the distributions of predictions and observations, "
                   "and 0 is best.",
        .formula = "max over t of |share of X up to t - share of Y up to t|",
        .range = "0 to 1",
        .better = Better::Lower,
        .papers = "agresti1996; agresti2002",
        .others = "D of the two-sample Kolmogorov-Smirnov test",
        .sameIn = "R: ks.test(X, Y)$statistic; scipy: stats.ks_2samp(X, Y)",
        .remark = "It compares the samples as wholes and does not see which prediction belongs to which "
                  "observation.",
    },
    {
        .key = "rank.kolmogorov_smirnov.n",
        .title = "Effective size of the Kolmogorov-Smirnov test",
        .meaning = "It is the size of one sample that weighs as much as the two.",
        .formula = "NX NY/(NX + NY) = N/2, NX and NY the sizes of the two samples",
        .range = "above 0",
        .papers = "agresti1996; agresti2002",
        .remark = "It is no test value, though it is printed in place of one.",
    },
    {
        .key = "rank.kolmogorov_smirnov.p",
        .title = "P of the Kolmogorov-Smirnov distance",
        .meaning = "It is the probability of a distance at least this large between samples of one "
                   "distribution, so a small value speaks against the model.",
        .formula = "P(K > (√n + 0.12 + 0.11/√n) KS), K of Kolmogorov's distribution, n = N/2",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "agresti1996; agresti2002",
        .remark = "The correction for small samples makes it differ from ks.test of R, which has none in its "
                  "asymptotic P. Pairs are taken as independent.",
    },
    {
        .key = "rank.mann_whitney",
        .title = "Mann-Whitney's probability difference",
        .meaning = "It is how much likelier an observation is above a prediction, any of each, than below, "
                   "and 0 is best.",
        .formula = "WD = P(Y > X) - P(Y < X) over all N² combinations",
        .range = "-1 to 1",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .papers = "agresti1996; agresti2002",
        .others = "Cliff's delta; rank-biserial correlation",
        .sameIn =
            "R: effectsize::rank_biserial(Y, X)$r_rank_biserial; R: 2*wilcox.test(Y, X)$statistic/N^2 - 1",
        .remark = "It compares the samples as wholes and does not see which prediction belongs to which "
                  "observation.",
    },
    {
        .key = "rank.mann_whitney.z",
        .title = "Z of Mann-Whitney's test",
        .meaning = "It is the test value for equally large predictions and observations, and near 0 is best.",
        .formula = "(U - N²/2)/√Var(U), Var(U) corrected for ties, no continuity correction",
        .range = "any number",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .papers = "agresti1996; agresti2002",
        .others = "Wilcoxon's rank sum test",
    },
    {
        .key = "rank.mann_whitney.p",
        .title = "One-sided P of Mann-Whitney's test",
        .meaning = "It is the probability of a Z at least this far to its side if predictions and "
                   "observations were equally large, so a small value speaks against the model.",
        .formula = "1 - Φ(|Z|)",
        .range = "0 to 0.5",
        .better = Better::Higher,
        .papers = "agresti1996; agresti2002",
        .sameIn = "R: wilcox.test(Y, X, exact = FALSE, correct = FALSE)$p.value/2; scipy: "
                  "stats.mannwhitneyu(Y, X, use_continuity=False, method=\"asymptotic\").pvalue/2",
        .remark = "It is one-sided, unlike the other probabilities: double it to compare.",
    },
};

} // namespace

std::span<const Quantity> RankQuantities() {
    return quantities;
}

} // namespace corvane
