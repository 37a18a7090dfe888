#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "comparison.ccc",
        .title = "Concordance correlation coefficient of a model",
        .meaning = "It says how closely the model's predictions follow the observations, scatter and bias "
                   "together, and 1 is best.",
        .formula = "|r| Cb",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "lin1989",
        .others = "CCC; Lin's coefficient",
        .sameIn = "R, positive r: epiR::epi.ccc(X, Y)$rho.c$est",
        .remark = "The correlation is the positive root of r²: a model that runs against the observations "
                  "shows that in its MEF, not here.",
    },
    {
        .key = "comparison.aic",
        .title = "Akaike's information criterion",
        .meaning = "It weighs the fit of the regression of Y on X against its parameters, and the model with "
                   "the smallest value is best.",
        .formula = "AIC = N (ln(SSE/N) + ln(6.283186) + 1) + 6, SSE of the least-squares line",
        .range = "any number; only differences count",
        .better = Better::Lower,
        .papers = "burnham2002",
        .others = "AIC with k = 3: intercept, slope and error variance",
        .sameIn = "R: AIC(lm(Y ~ X))",
        .remark = "2 π is taken as 6.283186. The criterion is that of the regression, so that a bias in line "
                  "with the predictions costs nothing. It is 0 for fewer than 4 rows or SSE = 0.",
    },
    {
        .key = "comparison.aicc",
        .title = "Corrected Akaike's information criterion",
        .meaning = "It is AIC corrected for small samples, and the model with the smallest value is best.",
        .formula = "AICc = AIC + 24/(N - 4)",
        .range = "any number; only differences count",
        .better = Better::Lower,
        .papers = "burnham2002",
        .others = "AICc with k = 3",
        .sameIn = "R: AIC(f) + 24/(N - 4), f <- lm(Y ~ X)",
        .remark = "2 π is taken as 6.283186. It takes 5 rows or more.",
    },
    {
        .key = "comparison.aicc_prime",
        .title = "Corrected Akaike's information criterion without its constant",
        .meaning =
            "It is AICc less a term that all models share, and the model with the smallest value is best.",
        .formula = "AICc' = N ln(SSE/N) + 6 + 24/(N - 4)",
        .range = "any number; only differences count",
        .better = Better::Lower,
        .papers = "burnham2002; burnham2011",
        .others = "AICc of least squares",
        .remark = "Differences between models are those of AICc.",
    },
    {
        .key = "comparison.best",
        .title = "Best model",
        .meaning = "It is the number of the model that is best by the index of its column.",
        .formula =
            "the largest r², MEF, Cb and CCC; the smallest MSEP, |MB|, ||CD| - 1|, AIC, AICc and AICc'",
        .range = "whole number, 1 to the number of models compared",
        .remark = "It counts the models compared, while the rows show positions in the list, which differ "
                  "where files are left out. MEF and Cb are judged by their size and not by their distance "
                  "from 1, and of equal models the first is best.",
    },
    {
        .key = "comparison.models.r",
        .title = "Correlation of two models' predictions",
        .meaning = "It says how closely the predictions of two models follow a straight line, and near 1 "
                   "they predict alike.",
        .formula = "Pearson's r of the two columns X",
        .range = "-1 to 1",
        .sign = "The predictions of both rise and fall together.",
        .papers = "neter1996",
        .sameIn = "R: cor(X1, X2)",
        .remark = "Models that predict alike need not be good: the observations take no part.",
    },
    {
        .key = "comparison.models.r.p",
        .title = "P of the correlation of two models' predictions",
        .meaning = "It is the probability of a correlation at least this strong if there were none, so a "
                   "small value says that the models predict alike.",
        .formula = "2 P(T > |t|), t = r √((N - 2)/(1 - r²)), N - 2 degrees of freedom",
        .range = "0 to 1",
        .papers = "neter1996",
        .sameIn = "R: cor.test(X1, X2)$p.value",
    },
    {
        .key = "comparison.models.ccc",
        .title = "Concordance of two models' predictions",
        .meaning = "It says how closely the predictions of two models are the same, and near 1 they are.",
        .formula = "rc of the two columns X",
        .range = "-1 to 1",
        .sign = "The predictions of both rise and fall together.",
        .papers = "lin1989",
        .others = "CCC",
        .sameIn = "R: epiR::epi.ccc(X1, X2)$rho.c$est",
    },
    {
        .key = "comparison.models.ccc.p",
        .title = "P of the concordance of two models' predictions",
        .meaning = "It is the probability of a concordance at least this far from 0 if there were none, so a "
                   "small value says that the models agree.",
        .formula = "2 (1 - Φ(|rc/SE(rc)|)), the standard error as for rc",
        .range = "0 to 1",
        .papers = "lin1989; lin2000",
        .remark = "It is of the coefficient itself, not of the transformed one.",
    },
    {
        .key = "comparison.msep.mean",
        .title = "Mean difference of the squared errors",
        .meaning = "It is how much larger the row model's MSEP is than the column model's, and a positive "
                   "value speaks for the column model.",
        .formula = "mean(D1² - D2²), row model less column model",
        .range = "squared unit of Y",
        .sign = "The column model predicts better.",
        .papers = "wallach1989",
        .sameIn = "R: t.test((Y - X1)^2, (Y - X2)^2, paired = TRUE)$estimate",
        .remark = "It is the difference of the two MSEP.",
    },
    {
        .key = "comparison.msep.se",
        .title = "Standard error of the mean difference",
        .meaning = "It is how far the mean difference would typically vary from sample to sample, and "
                   "smaller is more precise.",
        .formula = "SD(D1² - D2²)/√N",
        .range = "squared unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "wallach1989",
        .sameIn = "R: t.test((Y - X1)^2, (Y - X2)^2, paired = TRUE)$stderr",
    },
    {
        .key = "comparison.msep.p",
        .title = "P of equal MSEP",
        .meaning = "It is the probability of a mean difference at least this large if both models were "
                   "equally good, so a small value says that one is better.",
        .formula = "2 P(T > |mean/SE|), N - 1 degrees of freedom; 1 where SE is 0",
        .range = "0 to 1",
        .papers = "wallach1989",
        .sameIn = "R: t.test((Y - X1)^2, (Y - X2)^2, paired = TRUE)$p.value",
    },
    {
        .key = "comparison.deviations.r",
        .title = "Correlation of two models' deviations",
        .meaning = "It says whether two models go wrong on the same pairs, and near 0 their errors can "
                   "cancel in an average of both.",
        .formula = "Pearson's r of D1 and D2",
        .range = "-1 to 1",
        .sign = "Both go wrong to the same side.",
        .papers = "neter1996",
        .sameIn = "R: cor(Y - X1, Y - X2)",
    },
    {
        .key = "comparison.deviations.r.p",
        .title = "P of the correlation of two models' deviations",
        .meaning = "It is the probability of a correlation at least this strong if there were none, so a "
                   "small value says that the models go wrong together.",
        .formula = "2 P(T > |t|), t = r √((N - 2)/(1 - r²)), N - 2 degrees of freedom",
        .range = "0 to 1",
        .papers = "neter1996",
        .sameIn = "R: cor.test(Y - X1, Y - X2)$p.value",
    },
    {
        .key = "comparison.delta_aic",
        .title = "Difference of Akaike's criterion",
        .meaning = "It is how much larger the column model's criterion is than the row model's, and a "
                   "positive value speaks for the row model.",
        .formula = "DAIC = AICc'(column) - AICc'(row)",
        .range = "any number",
        .sign = "The row model is the likelier one.",
        .papers = "burnham2002",
        .others = "Delta AICc of two models",
        .sameIn = "R: AIC(lm(Y ~ X2)) - AIC(lm(Y ~ X1))",
        .remark =
            "The two models have the same number of parameters, so that it equals the difference of AIC.",
    },
    {
        .key = "comparison.delta_aic.weight",
        .title = "Akaike weight of the column model",
        .meaning =
            "It is the probability that the column model is the better of the two, and above 0.5 it is.",
        .formula = "exp(-DAIC/2)/(1 + exp(-DAIC/2))",
        .range = "0 to 1",
        .papers = "burnham2002",
        .others = "Akaike weight",
        .sameIn = "R: plogis(-DAIC/2)",
        .remark = "The label P-value is not that of a test: near 1 it speaks for the column model, near 0 "
                  "for the row model.",
    },
    {
        .key = "comparison.favoured",
        .title = "The likelier model",
        .meaning = "It is the number of the model that the criterion favours.",
        .formula = "the row model where DAIC >= 0, otherwise the column model",
        .range = "whole number, 1 to the number of models compared",
        .papers = "burnham2002",
        .remark = "It counts the models compared, while the tables show positions in the list.",
    },
    {
        .key = "comparison.evidence_ratio",
        .title = "Evidence ratio",
        .meaning = "It says how many times likelier the favoured model is than the other.",
        .formula = "(1 - P)/P for the row model, P/(1 - P) for the column model",
        .range = "1 to 9999",
        .papers = "burnham2002",
        .others = "Ratio of Akaike weights",
        .sameIn = "R: exp(abs(DAIC)/2)",
        .remark = "Above 9999 the sentence says >10000.",
    },
    {
        .key = "comparison.other",
        .title = "The less likely model",
        .meaning = "It is the number of the model that the criterion does not favour.",
        .formula = "the column model where DAIC >= 0, otherwise the row model",
        .range = "whole number, 1 to the number of models compared",
        .papers = "burnham2002",
        .remark = "It counts the models compared, while the tables show positions in the list.",
    },
};

} // namespace

std::span<const Quantity> ComparisonQuantities() {
    return quantities;
}

} // namespace corvane
