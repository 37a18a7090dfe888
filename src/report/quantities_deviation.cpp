#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "pair.number",
        .title = "Number of the pair",
        .meaning = "It counts the pairs in use, in the order of the rows.",
        .formula = "i",
        .range = "whole number, 1 or more",
        .remark = "It is not the number of the row where rows before it are excluded.",
    },
    {
        .key = "pair.predicted",
        .title = "Predicted value",
        .meaning = "It is what the model predicts for the pair.",
        .formula = "X",
        .range = "unit of Y",
        .others = "Simulated value; sim",
        .remark = "With the samples swapped it is the observation.",
    },
    {
        .key = "pair.observed",
        .title = "Observed value",
        .meaning = "It is what was observed for the pair.",
        .formula = "Y",
        .range = "unit of Y",
        .others = "Measured value; obs",
        .remark = "With the samples swapped it is the prediction.",
    },
    {
        .key = "deviation",
        .title = "Deviation",
        .meaning = "It is the amount by which the observation exceeds the prediction, and 0 is best.",
        .formula = "D = Y - X",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The model underpredicts the pair.",
        .others = "Error of prediction; minus the error of hydroGOF, which is of sim - obs",
        .sameIn = "R: Y - X",
    },
    {
        .key = "deviation.weighed",
        .title = "Weighed deviation",
        .meaning = "It is the pair's share of the total squared deviation with the sign of its deviation, "
                   "and pairs far from 0 carry most of the error.",
        .formula = "D |D|/Σ D²",
        .range = "-1 to 1, sizes adding up to 1",
        .better = Better::NearZero,
        .sign = "The model underpredicts the pair.",
        .sameIn = "R: (Y - X)*abs(Y - X)/sum((Y - X)^2)",
    },
    {
        .key = "deviation_line.intercept",
        .title = "Intercept of the deviations",
        .meaning = "It is the deviation that the line expects where the model predicts 0, and 0 is best.",
        .formula = "a of the least-squares line D = a + b X",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The model underpredicts where it predicts 0.",
        .papers = "neter1996; reynolds1984",
        .sameIn = "R: coef(lm(I(Y - X) ~ X))[1]",
    },
    {
        .key = "deviation_line.slope",
        .title = "Slope of the deviations",
        .meaning = "It is how much the deviation rises with the prediction, and 0 is best.",
        .formula = "b of the least-squares line D = a + b X",
        .range = "any number",
        .better = Better::NearZero,
        .sign = "The observations change by more than the predictions.",
        .papers = "neter1996; reynolds1984",
        .sameIn = "R: coef(lm(I(Y - X) ~ X))[2]",
        .remark = "It is the least-squares slope of Y on X less 1.",
    },
    {
        .key = "deviation_line.r_squared",
        .title = "Coefficient of determination of the deviations",
        .meaning = "It is the share of the deviations' variance that a straight line in the predictions "
                   "explains, and 0 is best.",
        .formula = "r² of D and X",
        .range = "0 to 1",
        .better = Better::Lower,
        .papers = "neter1996",
        .sameIn = "R: summary(lm(I(Y - X) ~ X))$r.squared",
        .remark = "Small is good here: deviations should not depend on the prediction.",
    },
    {
        .key = "deviation_line.mse",
        .title = "Mean square error of the deviations' line",
        .meaning = "It is the variance of the deviations around their line, and smaller is better.",
        .formula = "Σ (D - a - b X)²/(N - 2)",
        .range = "squared unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "neter1996",
        .sameIn = "R: sigma(lm(I(Y - X) ~ X))^2",
        .remark = "It equals that of the least-squares regression of Y on X.",
    },
    {
        .key = "deviation.confidence",
        .title = "Confidence of the intervals",
        .meaning = "It is the probability with which the intervals hold what they are for.",
        .formula = "100 (1 - alpha), as set in the options",
        .range = "above 0 to below 100%",
        .papers = "freese1960; reynolds1984",
        .remark = "A share outside of 1% or less is read as a fraction of 1: a confidence of 99.5% gives the "
                  "limits of 50%.",
    },
    {
        .key = "deviation.mean.interval",
        .title = "Confidence interval of the mean deviation",
        .meaning =
            "It is a range that holds the true mean bias with the confidence stated, and it should hold 0.",
        .formula = "mean(D) ± t(1 - alpha/2, N - 1) √(Var(D)/N)",
        .range = "unit of Y",
        .papers = "reynolds1984",
        .sameIn = "R: t.test(Y - X)$conf.int",
    },
    {
        .key = "deviation.new.interval",
        .title = "Prediction interval of a new deviation",
        .meaning = "It is a range that holds the deviation of a new pair with the confidence stated, and a "
                   "narrow one around 0 is best.",
        .formula = "mean(D) ± t(1 - alpha/2, N - 1) √(Var(D) (1 + 1/N))",
        .range = "unit of Y",
        .papers = "reynolds1984",
        .sameIn = "R: predict(lm(I(Y - X) ~ 1), data.frame(row = 1), interval = \"prediction\")",
    },
    {
        .key = "deviation.sd",
        .title = "Standard deviation of the deviations",
        .meaning = "It is the typical distance of a deviation from the mean bias, and smaller is better.",
        .formula = "√(Σ (D - mean(D))²/(N - 1))",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "neter1996",
        .others = "Standard error of prediction, corrected for bias (SEP)",
        .sameIn = "R: sd(Y - X)",
        .remark = "It does not see a bias that is the same for every pair.",
    },
    {
        .key = "deviation.root_sum_squares",
        .title = "Root of the sum of squared deviations",
        .meaning = "It is the size of all deviations together, and smaller is better.",
        .formula = "√(Σ D²)",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "freese1960; reynolds1984",
        .others = "Euclidean distance",
        .sameIn = "R: sqrt(sum((Y - X)^2))",
        .remark = "It grows with the number of pairs.",
    },
    {
        .key = "deviation.size.no_bias",
        .title = "Limits of the critical error without bias",
        .meaning = "It is a range for the size that a deviation stays under with the probability stated, if "
                   "the model has no bias, and smaller is better.",
        .formula = "√(chi²(1 - alpha, 1) Σ D²/chi²(p, N)), lower limit p = 1 - alpha, upper p = alpha",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "freese1960; reynolds1984",
        .others = "Freese's critical error",
        .sameIn = "R: sqrt(qchisq(1 - alpha, 1)*sum((Y - X)^2)/qchisq(c(1 - alpha, alpha), N))",
        .remark = "Alpha is left out at each end, so that the two together hold with 1 - 2 alpha.",
    },
    {
        .key = "deviation.size.constant_bias",
        .title = "Limits of the critical error with a constant bias",
        .meaning = "It is a range for the size that a deviation stays under with the probability stated, "
                   "once the mean bias is taken away, and smaller is better.",
        .formula = "√(chi²(1 - alpha, 1) Σ (D - mean(D))²/chi²(p, N - 1)), lower limit p = 1 - alpha, upper "
                   "p = alpha",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "freese1960; reynolds1984",
        .sameIn = "R: sqrt(qchisq(1 - alpha, 1)*(N - 1)*var(Y - X)/qchisq(c(1 - alpha, alpha), N - 1))",
        .remark = "Alpha is left out at each end, so that the two together hold with 1 - 2 alpha.",
    },
    {
        .key = "deviation.size.proportional_bias",
        .title = "Limits of the critical error with a proportional bias",
        .meaning = "It is a range for the size that a deviation stays under with the probability stated, "
                   "once a bias in line with the prediction is taken away, and smaller is better.",
        .formula = "√(chi²(1 - alpha, 1) SSE/chi²(p, N - 2)), SSE of the line D = a + b X, lower limit p = 1 "
                   "- alpha/2, upper p = alpha/2",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "freese1960; reynolds1984",
        .sameIn =
            "R: sqrt(qchisq(1 - alpha, 1)*deviance(lm(I(Y - X) ~ X))/qchisq(c(1 - alpha/2, alpha/2), N - 2))",
        .remark = "Alpha/2 is left out at each end, unlike in the two intervals above.",
    },
    {
        .key = "deviation_line.fitted",
        .title = "Deviation by the line",
        .meaning = "It is the deviation that the regression of the deviations expects at this prediction, "
                   "and 0 is best.",
        .formula = "a + b X of the least-squares line D = a + b X",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The model underpredicts there.",
        .papers = "neter1996",
        .sameIn = "R: fitted(lm(I(Y - X) ~ X))",
        .remark = "Rows are in ascending order of X.",
    },
    {
        .key = "deviation_line.interval",
        .title = "Confidence interval of the deviations' line",
        .meaning = "It is a range that holds the average deviation at this prediction with the confidence "
                   "stated, and it should hold 0.",
        .formula =
            "a + b X ± t(1 - alpha/2, N - 2) s √(1/N + (X - mean(X))²/Σ (X - mean(X))²), s² = SSE/(N - 2)",
        .range = "unit of Y",
        .papers = "neter1996",
        .sameIn = "R: predict(lm(I(Y - X) ~ X), interval = \"confidence\")",
        .remark = "Rows are in ascending order of X.",
    },
    {
        .key = "deviation_line.new_interval",
        .title = "Prediction interval of a new deviation at X",
        .meaning = "It is a range that holds the deviation of a new pair at this prediction with the "
                   "confidence stated, and a narrow one around 0 is best.",
        .formula = "a + b X ± t(1 - alpha/2, N - 2) s √(1 + 1/N + (X - mean(X))²/Σ (X - mean(X))²), s² = "
                   "SSE/(N - 2)",
        .range = "unit of Y",
        .papers = "neter1996",
        .sameIn = "R: predict(lm(I(Y - X) ~ X), interval = \"prediction\")",
        .remark = "Rows are in ascending order of X.",
    },
};

} // namespace

std::span<const Quantity> DeviationQuantities() {
    return quantities;
}

} // namespace corvane
