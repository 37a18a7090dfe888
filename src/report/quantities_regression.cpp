#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "regression.intercept",
        .title = "Intercept of the regression of Y on X",
        .meaning = "It is the observed value that the fitted line expects where the model predicts 0, and 0 "
                   "is best together with a slope of 1.",
        .formula = "a = mean(Y) - b mean(X); weighted: a and b minimise Σ (Y - a - b X)²/(SDY² + b² SDX²); "
                   "least absolute deviations: a and b minimise Σ |Y - a - b X|",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The fitted line lies above 0 where X is 0.",
        .papers = "neter1996; york2004",
        .sameIn =
            "R, least squares: coef(lm(Y ~ X))[1]; R, least absolute deviations: coef(quantreg::rq(Y ~ "
            "X))[1]; scipy, weighted: odr.ODR(RealData(X, Y, sx = SDX, sy = SDY), linear model).run().beta",
        .remark = "The method of the run decides which of the three lines it is. A weighted run that ignores "
                  "the errors of one side takes 1e-30 for them.",
    },
    {
        .key = "regression.intercept.sd",
        .title = "Standard error of the intercept",
        .meaning = "It is how far the intercept would typically vary from sample to sample, and smaller is "
                   "more precise.",
        .formula = "s √(1/N + mean(X)²/Σ(X - mean(X))²), s² = SSE/(N - 2); weighted: York's standard error "
                   "at the adjusted points",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "neter1996; york2004",
        .others = "Standard error",
        .sameIn = "R, least squares: coef(summary(lm(Y ~ X)))[1, 2]; scipy, weighted: root of the diagonal "
                  "of odr's cov_beta",
        .remark = "The report calls it SD. The weighted one is not scaled by the goodness of fit.",
    },
    {
        .key = "regression.slope",
        .title = "Slope of the regression of Y on X",
        .meaning =
            "It is how much the observations rise when the predictions rise by one unit, and 1 is best.",
        .formula = "b = Σ (X - mean(X))(Y - mean(Y))/Σ (X - mean(X))²; weighted and least absolute "
                   "deviations: as for the intercept",
        .range = "unit of Y per unit of X",
        .better = Better::NearOne,
        .sign = "Observations rise with predictions.",
        .papers = "neter1996; york2004",
        .sameIn = "R, least squares: coef(lm(Y ~ X))[2]; R, least absolute deviations: coef(quantreg::rq(Y ~ "
                  "X))[2]",
        .remark = "The regression is of the observations on the predictions, not the other way round.",
    },
    {
        .key = "regression.slope.sd",
        .title = "Standard error of the slope",
        .meaning = "It is how far the slope would typically vary from sample to sample, and smaller is more "
                   "precise.",
        .formula =
            "s/√Σ(X - mean(X))², s² = SSE/(N - 2); weighted: York's standard error at the adjusted points",
        .range = "unit of Y per unit of X, 0 or more",
        .better = Better::Lower,
        .papers = "neter1996; york2004",
        .others = "Standard error",
        .sameIn = "R, least squares: coef(summary(lm(Y ~ X)))[2, 2]; scipy, weighted: root of the diagonal "
                  "of odr's cov_beta",
        .remark = "The report calls it SD. The weighted one is not scaled by the goodness of fit.",
    },
    {
        .key = "regression.mse",
        .title = "Mean square error of the regression",
        .meaning = "It is the variance of the observations around the fitted line, and smaller is better.",
        .formula = "Σ (Y - a - b X)²/(N - 2)",
        .range = "squared unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "neter1996",
        .others = "Residual variance",
        .sameIn = "R, least squares: sigma(lm(Y ~ X))^2",
        .remark = "It is around the regression line; the error of the predictions themselves is MSEP. The "
                  "residuals are unweighted in a weighted run, too.",
    },
    {
        .key = "regression.rmse",
        .title = "Root mean square error of the regression",
        .meaning =
            "It is the typical distance of an observation from the fitted line, and smaller is better.",
        .formula = "√MSE",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "neter1996",
        .others = "Residual standard error; not the RMSE of the predictions, which is RMSEP",
        .sameIn = "R, least squares: sigma(lm(Y ~ X))",
    },
    {
        .key = "pairs.count",
        .title = "Number of pairs",
        .meaning = "It is how many pairs of predicted and observed values are in use.",
        .formula = "N",
        .range = "whole number, 3 or more",
        .remark = "Excluded rows do not count.",
    },
    {
        .key = "correlation.pearson",
        .title = "Pearson's correlation coefficient",
        .meaning = "It says how closely the pairs follow a straight line, whatever its slope and intercept, "
                   "and near 1 is best.",
        .formula = "r = Cov(X, Y)/(SD(X) SD(Y))",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "neter1996",
        .others = "Product-moment correlation; precision, beside the accuracy Cb",
        .sameIn = "R: cor(X, Y)",
        .remark = "It does not see bias: a model that always predicts twice the observation has r = 1.",
    },
    {
        .key = "regression.r_squared",
        .title = "Coefficient of determination",
        .meaning = "It is the share of the observations' variance that a straight line in the predictions "
                   "explains, and near 1 is best.",
        .formula = "r²",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "neter1996",
        .others = "R², R squared",
        .sameIn = "R: summary(lm(Y ~ X))$r.squared; R: cor(X, Y)^2",
        .remark =
            "It is the square of Pearson's r for every method of the regression, and so does not see bias.",
    },
    {
        .key = "regression.r_squared.adjusted",
        .title = "Adjusted coefficient of determination",
        .meaning = "It is r² lowered for the two parameters that were fitted, and near 1 is best.",
        .formula = "1 - (1 - r²)(N - 1)/(N - 2)",
        .range = "up to 1, negative where r² is small",
        .better = Better::Higher,
        .papers = "neter1996",
        .sameIn = "R: summary(lm(Y ~ X))$adj.r.squared",
    },
    {
        .key = "regression.r_squared.resistant",
        .title = "Resistant coefficient of determination",
        .meaning =
            "It is a coefficient of determination that a few wild pairs cannot spoil, and near 1 is best.",
        .formula = "1 - (median |Y - a - b X|/median |Y - mean(Y)|)²",
        .range = "up to 1, negative where the line is worse than the mean",
        .better = Better::Higher,
        .papers = "kvalseth1985",
        .remark = "The line is that of the run's method, but the comparison is with the mean of Y, which is "
                  "itself not resistant.",
    },
    {
        .key = "regression.r_squared.resistant.adjusted",
        .title = "Adjusted resistant coefficient of determination",
        .meaning =
            "It is the resistant r² lowered for the two parameters that were fitted, and near 1 is best.",
        .formula = "1 - (1 - resistant r²)(N - 1)/(N - 2)",
        .range = "up to 1, can be negative",
        .better = Better::Higher,
        .papers = "kvalseth1985",
    },
    {
        .key = "regression.chi2",
        .title = "Chi-square of the fit",
        .meaning = "It is the sum of the squared distances of the observations from the line, in units of "
                   "their errors where the fit is weighted, and smaller is better.",
        .formula = "Σ (Y - a - b X)²; weighted: Σ (Y - a - b X)²/(SDY² + b² SDX²)",
        .range = "0 or more; squared unit of Y where unweighted",
        .better = Better::Lower,
        .papers = "york2004",
        .others = "SSE, residual sum of squares, where unweighted",
        .sameIn = "R, least squares: deviance(lm(Y ~ X)); scipy, weighted: odr's sum_square",
        .remark = "Without weights every observation counts as having an error of 1, so that the value "
                  "depends on the unit of Y.",
    },
    {
        .key = "regression.chi2.q",
        .title = "Goodness-of-fit probability",
        .meaning = "It is the probability of a chi-square at least this large if the line and the stated "
                   "errors were right, and values above 0.1 make the fit believable.",
        .formula = "Q((N - 2)/2, Chi²/2), the upper regularised incomplete gamma function",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "york2004",
        .sameIn = "R: pchisq(Chi2, N - 2, lower.tail = FALSE)",
        .remark = "It means something only in a weighted run: elsewhere errors of 1 are assumed, and a "
                  "change of units changes it.",
    },
    {
        .key = "regression.absolute_deviation",
        .title = "Mean absolute residual",
        .meaning = "It is the average distance of the observations from the line of least absolute "
                   "deviations, and smaller is better.",
        .formula = "Σ |Y - a - b X|/N",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .sameIn = "R: mean(abs(resid(quantreg::rq(Y ~ X))))",
        .remark = "It is around the line; the absolute error of the predictions themselves is MAE.",
    },
    {
        .key = "test.correlation.t",
        .title = "t of the correlation",
        .meaning = "It is the test value for a correlation of 0, and the farther from 0 it is the clearer "
                   "the association.",
        .formula = "r √((N - 2)/(1 - r²))",
        .range = "any number; N - 2 degrees of freedom",
        .sign = "Observations rise with predictions.",
        .papers = "neter1996",
        .sameIn = "R: cor.test(X, Y)$statistic",
    },
    {
        .key = "test.correlation.p",
        .title = "P of the correlation",
        .meaning = "It is the probability of a correlation at least this strong if there were none, so a "
                   "small value says that predictions and observations go together.",
        .formula = "2 P(T > |t|), N - 2 degrees of freedom",
        .range = "0 to 1",
        .papers = "neter1996",
        .sameIn = "R: cor.test(X, Y)$p.value",
        .remark = "A P too small for the decimals prints as 1 in the last one, never as 0.",
    },
    {
        .key = "test.intercept.t",
        .title = "t of an intercept of 0",
        .meaning = "It is the intercept in units of its standard error, and near 0 there is no sign of an "
                   "intercept.",
        .formula = "a/SDa",
        .range = "any number; N - 2 degrees of freedom",
        .better = Better::NearZero,
        .sign = "The intercept is positive.",
        .papers = "neter1996",
        .sameIn = "R, least squares: coef(summary(lm(Y ~ X)))[1, 3]",
        .remark = "It is left out where the standard error is 0 or, as with least absolute deviations, not "
                  "computed. In the Bland-Altman regression an intercept other than 0 is expected.",
    },
    {
        .key = "test.intercept.p",
        .title = "P of an intercept of 0",
        .meaning = "It is the probability of an intercept at least this far from 0 if it were 0, so a small "
                   "value speaks against an intercept of 0.",
        .formula = "2 P(T > |a/SDa|), N - 2 degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "neter1996",
        .sameIn = "R, least squares: coef(summary(lm(Y ~ X)))[1, 4]",
    },
    {
        .key = "test.slope_zero.t",
        .title = "t of a slope of 0",
        .meaning = "It is the slope in units of its standard error, and near 0 there is no sign of a slope.",
        .formula = "b/SDb",
        .range = "any number; N - 2 degrees of freedom",
        .sign = "The slope is positive.",
        .papers = "neter1996",
        .sameIn = "R, least squares: coef(summary(lm(Y ~ X)))[2, 3]",
        .remark = "A model wants a slope of the observations on the predictions, but none of the deviations "
                  "or residuals.",
    },
    {
        .key = "test.slope_zero.p",
        .title = "P of a slope of 0",
        .meaning = "It is the probability of a slope at least this far from 0 if it were 0, so a small value "
                   "says that there is a slope.",
        .formula = "2 P(T > |b/SDb|), N - 2 degrees of freedom",
        .range = "0 to 1",
        .papers = "neter1996",
        .sameIn = "R, least squares: coef(summary(lm(Y ~ X)))[2, 4]",
    },
    {
        .key = "test.slope_one.t",
        .title = "t of a slope of 1",
        .meaning =
            "It is the distance of the slope from 1 in units of its standard error, and near 0 is best.",
        .formula = "(b - 1)/SDb",
        .range = "any number; N - 2 degrees of freedom",
        .better = Better::NearZero,
        .sign = "The observations change by more than the predictions.",
        .papers = "neter1996",
        .sameIn = "R, least squares: coef(summary(lm(Y ~ X + offset(X))))[2, 3]",
    },
    {
        .key = "test.slope_one.p",
        .title = "P of a slope of 1",
        .meaning = "It is the probability of a slope at least this far from 1 if it were 1, so a small value "
                   "speaks against the model.",
        .formula = "2 P(T > |(b - 1)/SDb|), N - 2 degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "neter1996",
        .sameIn = "R, least squares: coef(summary(lm(Y ~ X + offset(X))))[2, 4]",
    },
    {
        .key = "test.identity.dent_blackie.f",
        .title = "F of intercept 0 and slope 1, Dent and Blackie",
        .meaning = "It tests intercept 0 and slope 1 at once, and a small value is good.",
        .formula = "Σ (a + (b - 1) X)²/(2 s²), s² = Σ (Y - a - b X)²/(N - 2)",
        .range = "0 or more; 2 and N - 2 degrees of freedom",
        .better = Better::Lower,
        .papers = "dent1979",
        .sameIn =
            "R, least squares: car::linearHypothesis(lm(Y ~ X), c(\"(Intercept) = 0\", \"X = 1\"))$F[2]",
        .remark = "A model with little scatter can fail this test for a bias that does not matter, and one "
                  "with much scatter can pass it.",
    },
    {
        .key = "test.identity.dent_blackie.p",
        .title = "P of intercept 0 and slope 1, Dent and Blackie",
        .meaning = "It is the probability of an F at least this large if intercept were 0 and slope 1, so a "
                   "small value speaks against the model.",
        .formula = "P(F(2, N - 2) > F)",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "dent1979",
        .sameIn = "R, least squares: car::linearHypothesis(lm(Y ~ X), c(\"(Intercept) = 0\", \"X = "
                  "1\"))$\"Pr(>F)\"[2]",
    },
    {
        .key = "test.identity.mayer.f",
        .title = "F of intercept 0 and slope 1, Mayer et al.",
        .meaning = "It compares the scatter around Y = X with that around the fitted line, and a small value "
                   "is good.",
        .formula = "((Σ D² - SSE)/2)/s², SSE = Σ (Y - a - b X)², s² = SSE/(N - 2)",
        .range = "0 or more for least squares, can be negative for the other lines; 2 and N - 2 degrees of "
                 "freedom",
        .better = Better::Lower,
        .papers = "mayer1994",
        .sameIn =
            "R, least squares: car::linearHypothesis(lm(Y ~ X), c(\"(Intercept) = 0\", \"X = 1\"))$F[2]",
        .remark = "It equals that of Dent and Blackie for the least-squares line alone.",
    },
    {
        .key = "test.identity.mayer.p",
        .title = "P of intercept 0 and slope 1, Mayer et al.",
        .meaning = "It is the probability of an F at least this large if intercept were 0 and slope 1, so a "
                   "small value speaks against the model.",
        .formula = "P(F(2, N - 2) > F); 1 where F is 0 or less",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "mayer1994",
        .sameIn = "R, least squares: car::linearHypothesis(lm(Y ~ X), c(\"(Intercept) = 0\", \"X = "
                  "1\"))$\"Pr(>F)\"[2]",
    },
};

} // namespace

std::span<const Quantity> RegressionQuantities() {
    return quantities;
}

} // namespace corvane
