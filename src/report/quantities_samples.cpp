#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "normality.shapiro_wilk.w",
        .title = "Shapiro-Wilk's W",
        .meaning = "It says how well the sample fits a normal distribution, and near 1 it fits.",
        .formula = "W = (Σ a(i) x(i))²/Σ (x - mean(x))², x(i) in ascending order, weights a(i) by Royston's "
                   "approximation",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "royston1995; shapiro1965",
        .sameIn = "R: shapiro.test(x)$statistic",
        .remark = "Above 5000 values, where R refuses, the same formulas are extrapolated.",
    },
    {
        .key = "normality.shapiro_wilk.p",
        .title = "P of Shapiro-Wilk's W",
        .meaning = "It is the probability of a W at most this large in a sample of a normal distribution, so "
                   "a small value says that the sample is not normal.",
        .formula = "P(W' < W) by Royston's transformation of ln(1 - W) to a normal value",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "royston1995",
        .sameIn = "R: shapiro.test(x)$p.value",
    },
    {
        .key = "normality.kolmogorov_smirnov.d",
        .title = "Kolmogorov-Smirnov's D of normality",
        .meaning = "It is the largest distance between the sample's distribution and the normal one with its "
                   "mean and SD, and near 0 it fits.",
        .formula =
            "max(i/N - z(i), z(i) - (i - 1)/N), z(i) = Φ((x(i) - mean(x))/SD(x)), x(i) in ascending order",
        .range = "0 to 1",
        .better = Better::Lower,
        .papers = "dagostino1986; davis1989",
        .others = "Lilliefors's statistic, since mean and SD are those of the sample",
        .sameIn = "R: nortest::lillie.test(x)$statistic",
        .remark = "The statistic has no P here. It is not modified for the size of the sample, which the "
                  "line below the table calls not adjusted.",
    },
    {
        .key = "normality.kuiper.v",
        .title = "Kuiper's V",
        .meaning = "It is the sum of the largest distances to both sides between the sample's distribution "
                   "and the normal one, and near 0 it fits.",
        .formula = "max(i/N - z(i)) + max(z(i) - (i - 1)/N), z(i) as for D",
        .range = "0 to 2",
        .better = Better::Lower,
        .papers = "dagostino1986; davis1989",
        .remark = "The statistic has no P here.",
    },
    {
        .key = "normality.cramer_von_mises.w2",
        .title = "Cramér-von Mises's W²",
        .meaning = "It is the summed squared distance between the sample's distribution and the normal one, "
                   "and near 0 it fits.",
        .formula = "1/(12 N) + Σ (z(i) - (2 i - 1)/(2 N))², z(i) as for D",
        .range = "1/(12 N) or more",
        .better = Better::Lower,
        .papers = "dagostino1986; davis1989",
        .sameIn =
            "R: nortest::cvm.test(x)$statistic; R: goftest::cvm.test(x, \"pnorm\", mean(x), sd(x))$statistic",
        .remark = "The statistic shown is not modified for the size of the sample, but its P is of the "
                  "modified one.",
    },
    {
        .key = "normality.cramer_von_mises.p",
        .title = "P of Cramér-von Mises's W²",
        .meaning = "It is the probability of a W² at least this large in a sample of a normal distribution, "
                   "so a small value says that the sample is not normal.",
        .formula = "Stephens's formulas for W² (1 + 0.5/N)",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "dagostino1986",
        .sameIn = "R: nortest::cvm.test(x)$p.value, down to 7.37e-10, where that stops",
    },
    {
        .key = "normality.watson.u2",
        .title = "Watson's U²",
        .meaning = "It is the summed squared distance between the two distributions less their average "
                   "difference, and near 0 the sample fits a normal one.",
        .formula = "W² - N (mean(z) - 1/2)², z(i) as for D",
        .range = "0 or more",
        .better = Better::Lower,
        .papers = "dagostino1986; davis1989",
        .remark = "The statistic shown is not modified for the size of the sample, but its P is of the "
                  "modified one.",
    },
    {
        .key = "normality.watson.p",
        .title = "P of Watson's U²",
        .meaning = "It is the probability of a U² at least this large in a sample of a normal distribution, "
                   "so a small value says that the sample is not normal.",
        .formula = "Stephens's formulas for U² (1 + 0.5/N)",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "dagostino1986",
    },
    {
        .key = "normality.anderson_darling.a2",
        .title = "Anderson-Darling's A²",
        .meaning = "It is the squared distance between the sample's distribution and the normal one with "
                   "most weight on the tails, and near 0 it fits.",
        .formula = "-N - Σ (2 i - 1)(ln z(i) + ln(1 - z(N + 1 - i)))/N, z(i) as for D",
        .range = "0 or more",
        .better = Better::Lower,
        .papers = "dagostino1986; davis1989",
        .sameIn = "R: nortest::ad.test(x)$statistic; scipy: stats.anderson(x).statistic",
        .remark = "The statistic shown is not modified for the size of the sample, but its P is of the "
                  "modified one.",
    },
    {
        .key = "normality.anderson_darling.p",
        .title = "P of Anderson-Darling's A²",
        .meaning = "It is the probability of an A² at least this large in a sample of a normal distribution, "
                   "so a small value says that the sample is not normal.",
        .formula = "Stephens's formulas for A² (1 + 0.75/N + 2.25/N²)",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "dagostino1986",
        .sameIn = "R: nortest::ad.test(x)$p.value",
    },
    {
        .key = "moments.mean_absolute",
        .title = "Mean absolute value",
        .meaning = "It is the average size of the values, whatever their sign.",
        .formula = "Σ |x|/N",
        .range = "unit of the data, 0 or more",
        .papers = "neter1996",
        .sameIn = "R: mean(abs(x))",
        .remark = "It is of the values, not of their distances from the mean.",
    },
    {
        .key = "moments.minimum",
        .title = "Minimum",
        .meaning = "It is the smallest value, and the predictions' should be near the observations'.",
        .formula = "min(x)",
        .range = "unit of the data",
        .papers = "neter1996",
        .sameIn = "R: min(x)",
    },
    {
        .key = "moments.maximum",
        .title = "Maximum",
        .meaning = "It is the largest value, and the predictions' should be near the observations'.",
        .formula = "max(x)",
        .range = "unit of the data",
        .papers = "neter1996",
        .sameIn = "R: max(x)",
    },
    {
        .key = "moments.mean",
        .title = "Mean",
        .meaning = "It is the average of the values, and the predictions' should be near the observations'.",
        .formula = "Σ x/N",
        .range = "unit of the data",
        .papers = "neter1996",
        .sameIn = "R: mean(x)",
    },
    {
        .key = "moments.median",
        .title = "Median",
        .meaning = "It is the value in the middle, which a few extreme values do not move.",
        .formula = "the middle value in ascending order, or the mean of the two middle ones",
        .range = "unit of the data",
        .papers = "neter1996",
        .sameIn = "R: median(x)",
    },
    {
        .key = "moments.variance",
        .title = "Variance",
        .meaning = "It says how widely the values are spread, and the predictions' should be near the "
                   "observations'.",
        .formula = "Σ (x - mean(x))²/(N - 1)",
        .range = "squared unit of the data, 0 or more",
        .papers = "neter1996",
        .sameIn = "R: var(x)",
    },
    {
        .key = "moments.sd",
        .title = "Standard deviation",
        .meaning = "It is the typical distance of a value from the mean, and the predictions' should be near "
                   "the observations'.",
        .formula = "√(Σ (x - mean(x))²/(N - 1))",
        .range = "unit of the data, 0 or more",
        .papers = "neter1996",
        .sameIn = "R: sd(x)",
    },
    {
        .key = "moments.skewness",
        .title = "Skewness",
        .meaning = "It says to which side the values have the longer tail, and 0 is symmetric.",
        .formula = "G1 = √(N (N - 1))/(N - 2) m3/m2^1.5, m2 and m3 the central moments of divisor N",
        .range = "any number",
        .sign = "The longer tail is on the side of large values.",
        .papers = "joanes1998",
        .sameIn = "R: e1071::skewness(x, type = 2); scipy: stats.skew(x, bias=False)",
        .remark = "It is the bias-adjusted form of SAS, SPSS and spreadsheets, and 0 for values that are all "
                  "the same.",
    },
    {
        .key = "moments.kurtosis",
        .title = "Kurtosis",
        .meaning = "It says how heavy the tails are, and 0 is as in a normal distribution.",
        .formula = "G2 = (N - 1)/((N - 2)(N - 3)) ((N + 1)(m4/m2² - 3) + 6), m2 and m4 the central moments "
                   "of divisor N",
        .range = "any number",
        .sign = "The tails are heavier than those of a normal distribution.",
        .papers = "joanes1998",
        .others = "Excess kurtosis",
        .sameIn = "R: e1071::kurtosis(x, type = 2); scipy: stats.kurtosis(x, bias=False)",
        .remark = "It is the excess over the normal distribution's 3, and 0 for fewer than four values.",
    },
    {
        .key = "moments.difference.mean",
        .title = "Mean of X - Y",
        .meaning =
            "It is the average amount by which the predictions exceed the observations, and 0 is best.",
        .formula = "mean(X) - mean(Y)",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The model overpredicts.",
        .papers = "neter1996",
        .others = "Mean error of hydroGOF (me)",
        .sameIn = "R: mean(X - Y)",
        .remark = "Its sign is the opposite of that of the mean bias, which is of Y - X.",
    },
    {
        .key = "moments.difference.variance",
        .title = "Variance of the deviations",
        .meaning = "It says how widely the deviations are spread around their mean, and smaller is better.",
        .formula = "Σ (D - mean(D))²/(N - 1)",
        .range = "squared unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "neter1996",
        .sameIn = "R: var(X - Y)",
        .remark = "It does not see a bias that is the same for every pair.",
    },
    {
        .key = "moments.covariance",
        .title = "Covariance",
        .meaning = "It says how far predictions and observations vary together, in their units.",
        .formula = "Σ (X - mean(X))(Y - mean(Y))/(N - 1)",
        .range = "squared unit of the data",
        .sign = "Observations rise with predictions.",
        .papers = "neter1996",
        .sameIn = "R: cov(X, Y)",
    },
    {
        .key = "robust.sn",
        .title = "Sn",
        .meaning = "It is a kind of standard deviation that stays sound with up to half of the values wild, "
                   "and the predictions' should be near the observations'.",
        .formula = "1.1926 c(N) lomed over i of himed over j of |x(i) - x(j)|, c(N) the correction for small "
                   "samples",
        .range = "unit of the data, 0 or more",
        .papers = "croux1992; rousseeuw1993",
        .sameIn = "R: robustbase::Sn(x)",
        .remark = "It measures spread; the report's comment calls it an estimator of location.",
    },
    {
        .key = "robust.qn",
        .title = "Qn",
        .meaning = "It is a kind of standard deviation that stays sound with up to half of the values wild, "
                   "more precise than Sn, and the predictions' should be near the observations'.",
        .formula = "2.21914 c(N) times the k-th smallest |x(i) - x(j)|, i < j, k = h (h - 1)/2, h = N/2 "
                   "rounded down + 1, c(N) the correction for small samples",
        .range = "unit of the data, 0 or more",
        .papers = "croux1992; rousseeuw1993",
        .sameIn = "R: robustbase::Qn(x)",
        .remark = "It measures spread; the report's comment calls it an estimator of location.",
    },
};

} // namespace

std::span<const Quantity> SampleQuantities() {
    return quantities;
}

} // namespace corvane
