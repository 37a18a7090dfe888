#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "bias.mean",
        .title = "Mean bias",
        .meaning =
            "It is the average amount by which the observations exceed the predictions, and 0 is best.",
        .formula = "MB = mean(Y - X)",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .papers = "cochran1957",
        .others = "Minus the mean error of hydroGOF (me), which is of sim - obs; mean deviation",
        .sameIn = "R: Metrics::bias(actual = Y, predicted = X); R: mean(Y - X)",
        .remark = "A bias of exactly 0 is called overprediction. Pairs of opposite sign cancel: a bias of 0 "
                  "is no proof of small errors. The line dates its paper 1954, the references 1957.",
    },
    {
        .key = "bias.mean.percent_of_x",
        .title = "Mean bias in percent of the mean of X",
        .meaning = "It is the mean bias as a share of the average prediction, and 0 is best.",
        .formula = "100 MB/mean(X)",
        .range = "%",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .papers = "cochran1957",
        .remark = "Where the mean of X is 0 or negative the line says that it is zero.",
    },
    {
        .key = "bias.mean.percent_of_y",
        .title = "Mean bias in percent of the mean of Y",
        .meaning = "It is the mean bias as a share of the average observation, and 0 is best.",
        .formula = "100 MB/mean(Y)",
        .range = "%",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .papers = "cochran1957",
        .others = "Minus the percent bias PBIAS of hydroGOF, which is of sim - obs",
        .sameIn = "R: -hydroGOF::pbias(sim = X, obs = Y), which rounds to one decimal unless dec is given",
        .remark = "Where the mean of Y is 0 or negative the line says that it is zero.",
    },
    {
        .key = "bias.percent",
        .title = "Percent bias",
        .meaning = "It is what the predictions exceed the observations by in all, as a share of the "
                   "observations, and 0 is best.",
        .formula = "PBIAS = 100 Σ (X - Y)/Σ Y",
        .range = "%",
        .better = Better::NearZero,
        .sign = "The model overpredicts, where the observations' sum is positive.",
        .others = "PBIAS; minus the mean bias in percent of the mean of Y",
        .sameIn = "R: hydroGOF::pbias(sim = X, obs = Y), which rounds to one decimal unless dec is given",
        .remark = "It is in the JSON alone. Its sign is that of predicted less observed; some authors take "
                  "the other.",
    },
    {
        .key = "variances.f",
        .title = "F of equal variances",
        .meaning = "It is the ratio of the observations' variance to the predictions', and 1 is best.",
        .formula = "Var(Y)/Var(X)",
        .range = "0 or more; N - 1 and N - 1 degrees of freedom",
        .better = Better::NearOne,
        .sameIn = "R: var.test(Y, X)$statistic",
        .remark = "The test takes the two samples as independent, which pairs are not.",
    },
    {
        .key = "variances.p",
        .title = "P of equal variances",
        .meaning = "It is the probability of variances at least this different if they were equal, so a "
                   "small value says that the model spreads its predictions wrongly.",
        .formula = "2 min(P(F' < F), P(F' > F)), N - 1 and N - 1 degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .sameIn = "R: var.test(Y, X)$p.value",
    },
    {
        .key = "means.pooled.t",
        .title = "t of equal means, same variance",
        .meaning = "It tests whether the means of two independent samples of one variance are equal, and "
                   "near 0 is best.",
        .formula = "(mean(Y) - mean(X))/√(sp² 2/N), sp² the mean of the two variances",
        .range = "any number; 2 N - 2 degrees of freedom",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .others = "Student's t-test",
        .sameIn = "R: t.test(Y, X, var.equal = TRUE)$statistic",
        .remark = "It ignores that the values are paired; the paired test sees smaller biases.",
    },
    {
        .key = "means.pooled.p",
        .title = "P of equal means, same variance",
        .meaning = "It is the probability of means at least this different if they were equal, so a small "
                   "value speaks of a bias.",
        .formula = "2 P(T > |t|), 2 N - 2 degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .sameIn = "R: t.test(Y, X, var.equal = TRUE)$p.value",
    },
    {
        .key = "means.welch.t",
        .title = "t of equal means, different variances",
        .meaning = "It tests whether the means of two independent samples are equal without taking their "
                   "variances to be, and near 0 is best.",
        .formula = "(mean(Y) - mean(X))/√(Var(Y)/N + Var(X)/N)",
        .range = "any number; Welch's degrees of freedom",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .others = "Welch's t-test",
        .sameIn = "R: t.test(Y, X)$statistic",
        .remark = "The samples are of one size, so that it always equals the t of the same variance; only "
                  "the degrees of freedom differ.",
    },
    {
        .key = "means.welch.p",
        .title = "P of equal means, different variances",
        .meaning = "It is the probability of means at least this different if they were equal, so a small "
                   "value speaks of a bias.",
        .formula = "2 P(T > |t|), (N - 1)(Var(X) + Var(Y))²/(Var(X)² + Var(Y)²) degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .sameIn = "R: t.test(Y, X)$p.value",
    },
    {
        .key = "means.paired_covariance.t",
        .title = "t of paired means, by the covariance",
        .meaning = "It tests whether the mean bias is 0 with the pairs' covariance taken into account, and "
                   "near 0 is best.",
        .formula = "(mean(Y) - mean(X))/√((Var(X) + Var(Y) - 2 Cov(X, Y))/N)",
        .range = "any number; N - 1 degrees of freedom",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .others = "Paired t-test",
        .sameIn = "R: t.test(Y, X, paired = TRUE)$statistic",
        .remark = "It always equals the t of the paired differences: the two are one test.",
    },
    {
        .key = "means.paired_covariance.p",
        .title = "P of paired means, by the covariance",
        .meaning = "It is the probability of a mean bias at least this large if there were none, so a small "
                   "value speaks of a bias.",
        .formula = "2 P(T > |t|), N - 1 degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .sameIn = "R: t.test(Y, X, paired = TRUE)$p.value",
    },
    {
        .key = "means.paired_difference.t",
        .title = "t of paired means, by the differences",
        .meaning = "It is the mean bias in units of its standard error, and near 0 is best.",
        .formula = "mean(D)/√(Var(D)/N)",
        .range = "any number; N - 1 degrees of freedom",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .others = "Paired t-test",
        .sameIn = "R: t.test(Y, X, paired = TRUE)$statistic",
    },
    {
        .key = "means.paired_difference.p",
        .title = "P of paired means, by the differences",
        .meaning = "It is the probability of a mean bias at least this large if there were none, so a small "
                   "value speaks of a bias.",
        .formula = "2 P(T > |t|), N - 1 degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .sameIn = "R: t.test(Y, X, paired = TRUE)$p.value",
    },
    {
        .key = "error.mae",
        .title = "Mean absolute error",
        .meaning = "It is the average size of an error of prediction, and smaller is better.",
        .formula = "MAE = Σ |D|/N",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .others = "Mean absolute deviation of predictions from observations",
        .sameIn = "R: Metrics::mae(actual = Y, predicted = X); R: hydroGOF::mae(sim = X, obs = Y)",
    },
    {
        .key = "error.mae.percent_of_x",
        .title = "Mean absolute error in percent of the mean of X",
        .meaning =
            "It is the average size of an error as a share of the average prediction, and smaller is better.",
        .formula = "100 MAE/mean(X)",
        .range = "%, 0 or more",
        .better = Better::Lower,
        .remark = "Where the mean of X is 0 or negative the line says that it is zero.",
    },
    {
        .key = "error.mae.percent_of_y",
        .title = "Mean absolute error in percent of the mean of Y",
        .meaning = "It is the average size of an error as a share of the average observation, and smaller is "
                   "better.",
        .formula = "100 MAE/mean(Y)",
        .range = "%, 0 or more",
        .better = Better::Lower,
        .others =
            "Normalised MAE; weighted absolute percentage error (WAPE) where no observation is negative",
        .remark = "Where the mean of Y is 0 or negative the line says that it is zero.",
    },
    {
        .key = "error.mape",
        .title = "Mean absolute percentage error",
        .meaning =
            "It is the average of the errors, each as a share of its observation, and smaller is better.",
        .formula = "100 mean(|D|/|Y|) over the pairs with Y other than 0",
        .range = "%, 0 or more",
        .better = Better::Lower,
        .others = "MAPE",
        .sameIn = "R: 100*Metrics::mape(actual = Y, predicted = X), where no Y is 0",
        .remark = "Pairs with an observation of 0 are left out, of the count as well. Small observations can "
                  "dominate it.",
    },
    {
        .key = "error.mef",
        .title = "Modeling efficiency",
        .meaning = "It compares the model with always predicting the observed mean, where 1 is perfect and "
                   "below 0 the mean predicts better.",
        .formula = "MEF = 1 - Σ D²/Σ (Y - mean(Y))²",
        .range = "up to 1, without a lower limit",
        .better = Better::Higher,
        .sign = "The model predicts better than the observed mean.",
        .papers = "loague1991; zacharias1996",
        .others = "Nash-Sutcliffe efficiency (NSE); R² of the line Y = X; skill score against climatology",
        .sameIn = "R: hydroGOF::NSE(sim = X, obs = Y); R: 1 - Metrics::rse(actual = Y, predicted = X)",
    },
    {
        .key = "error.cd",
        .title = "Coefficient of model determination",
        .meaning = "It compares the spread of the observations with that of the predictions around the "
                   "observed mean, and 1 is best.",
        .formula = "CD = Σ (Y - mean(Y))²/Σ (X - mean(Y))²",
        .range = "0 or more",
        .better = Better::NearOne,
        .papers = "loague1991; zacharias1996",
        .sameIn = "R: sum((Y - mean(Y))^2)/sum((X - mean(Y))^2)",
        .remark =
            "The mean of Y is in the denominator, too, so that a bias lowers it. It looks at spreads alone: "
            "1 does not mean that single predictions are right. Above 1 the predictions vary too little.",
    },
    {
        .key = "error.maximum",
        .title = "Maximum error",
        .meaning = "It is the largest error of prediction, and smaller is better.",
        .formula = "max |D|",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "loague1991",
        .others = "Chebyshev distance",
        .sameIn = "R: max(abs(Y - X))",
    },
    {
        .key = "ratio.of_means",
        .title = "Ratio of the means",
        .meaning = "It is the average prediction as a multiple of the average observation, and 1 is best.",
        .formula = "mean(X)/mean(Y)",
        .range = "any number",
        .better = Better::NearOne,
        .sameIn = "R: mean(X)/mean(Y)",
    },
    {
        .key = "ratio.mean",
        .title = "Mean of the ratios",
        .meaning =
            "It is the average of the predictions, each as a multiple of its observation, and 1 is best.",
        .formula = "mean(q), q = X/Y, and q = 0 where Y = 0",
        .range = "any number",
        .better = Better::NearOne,
        .sameIn = "R: mean(X/Y), where no Y is 0",
        .remark = "A pair with an observation of 0 counts as a ratio of 0.",
    },
    {
        .key = "ratio.sd",
        .title = "SD of the ratios",
        .meaning = "It says how widely the ratios are spread, and smaller is better.",
        .formula = "SD(q), q as for the mean of the ratios, divisor N - 1",
        .range = "0 or more",
        .better = Better::Lower,
        .sameIn = "R: sd(X/Y), where no Y is 0",
    },
    {
        .key = "ratio.interval_05",
        .title = "Interval of the mean ratio, P = 0.05",
        .meaning = "It is a range that leaves out the true mean ratio with a probability of 0.05 to each "
                   "side, and it should hold 1.",
        .formula = "mean(q) ± t(0.95, N) SD(q)/√N",
        .range = "any number",
        .sameIn = "R: mean(X/Y) + c(-1, 1)*qt(0.95, N)*sd(X/Y)/sqrt(N), where no Y is 0",
        .remark = "0.05 is left out at each end, so that it is the usual 90% interval, and its degrees of "
                  "freedom are N, unlike those of the tests.",
    },
    {
        .key = "ratio.interval_10",
        .title = "Interval of the mean ratio, P = 0.10",
        .meaning = "It is a range that leaves out the true mean ratio with a probability of 0.10 to each "
                   "side, and it should hold 1.",
        .formula = "mean(q) ± t(0.90, N) SD(q)/√N",
        .range = "any number",
        .remark = "0.10 is left out at each end, so that it is the usual 80% interval, and its degrees of "
                  "freedom are N, unlike those of the tests.",
    },
    {
        .key = "ratio.p_zero",
        .title = "P of a mean ratio of 0",
        .meaning = "It is the probability of a mean ratio at least this far from 0 if it were 0.",
        .formula = "2 P(T > |mean(q)|/(SD(q)/√N)), N - 2 degrees of freedom",
        .range = "0 to 1",
        .remark = "The degrees of freedom are N - 2, where a test of one sample has N - 1. Unlike other "
                  "probabilities it can print as 0.",
    },
    {
        .key = "ratio.p_one",
        .title = "P of a mean ratio of 1",
        .meaning = "It is the probability of a mean ratio at least this far from 1 if it were 1, so a small "
                   "value speaks against the model.",
        .formula = "2 P(T > |mean(q) - 1|/(SD(q)/√N)), N - 2 degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .sameIn = "R: 2*pt(-abs((mean(X/Y) - 1)/(sd(X/Y)/sqrt(N))), N - 2), where no Y is 0",
        .remark = "The degrees of freedom are N - 2, where a test of one sample has N - 1. Unlike other "
                  "probabilities it can print as 0.",
    },
};

} // namespace

std::span<const Quantity> ErrorQuantities() {
    return quantities;
}

} // namespace corvane
