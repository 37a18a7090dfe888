#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "lines.vertical.intercept",
        .title = "Intercept, least squares of Y on X",
        .meaning =
            "It is the intercept of the line with the smallest squared vertical distances, and 0 is best.",
        .formula = "a1 = mean(Y) - b1 mean(X)",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The line lies above 0 where X is 0.",
        .papers = "isobe1990",
        .sameIn = "R: coef(lm(Y ~ X))[1]",
    },
    {
        .key = "lines.vertical.slope",
        .title = "Slope, least squares of Y on X",
        .meaning = "It is the slope of the line with the smallest squared vertical distances, and 1 is best.",
        .formula = "b1 = Sxy/Sxx, Sxx = Σ (X - mean(X))², Syy = Σ (Y - mean(Y))², Sxy = Σ (X - mean(X))(Y - "
                   "mean(Y))",
        .range = "unit of Y per unit of X",
        .better = Better::NearOne,
        .sign = "Observations rise with predictions.",
        .papers = "isobe1990",
        .others = "OLS(Y|X); vertical least squares",
        .sameIn = "R: coef(lm(Y ~ X))[2]",
        .remark = "All error counts as error of the observations.",
    },
    {
        .key = "lines.horizontal.intercept",
        .title = "Intercept, least squares of X on Y",
        .meaning =
            "It is the intercept of the line with the smallest squared horizontal distances, and 0 is best.",
        .formula = "a2 = mean(Y) - b2 mean(X)",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The line lies above 0 where X is 0.",
        .papers = "isobe1990",
    },
    {
        .key = "lines.horizontal.slope",
        .title = "Slope, least squares of X on Y",
        .meaning = "It is the slope, drawn as Y over X, of the line with the smallest squared horizontal "
                   "distances, and 1 is best.",
        .formula = "b2 = Syy/Sxy",
        .range = "unit of Y per unit of X",
        .better = Better::NearOne,
        .sign = "Observations rise with predictions.",
        .papers = "isobe1990",
        .others = "OLS(X|Y); inverse regression; horizontal least squares",
        .sameIn = "R: 1/coef(lm(X ~ Y))[2]",
        .remark = "It is the inverse of the coefficient that a regression of X on Y prints.",
    },
    {
        .key = "lines.bisector.intercept",
        .title = "Intercept, bisector of the two least-squares lines",
        .meaning = "It is the intercept of the line midway in angle between the two least-squares lines, and "
                   "0 is best.",
        .formula = "a3 = mean(Y) - b3 mean(X)",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The line lies above 0 where X is 0.",
        .papers = "isobe1990",
    },
    {
        .key = "lines.bisector.slope",
        .title = "Slope, bisector of the two least-squares lines",
        .meaning =
            "It is the slope of the line midway in angle between the two least-squares lines, and 1 is best.",
        .formula = "b3 = (b1 b2 - 1 + √((1 + b1²)(1 + b2²)))/(b1 + b2)",
        .range = "unit of Y per unit of X",
        .better = Better::NearOne,
        .sign = "Observations rise with predictions.",
        .papers = "isobe1990",
        .others = "OLS bisector",
        .remark = "It depends on the units: X and Y should have the same.",
    },
    {
        .key = "lines.orthogonal.intercept",
        .title = "Intercept, orthogonal regression",
        .meaning = "It is the intercept of the line with the smallest squared perpendicular distances, and 0 "
                   "is best.",
        .formula = "a4 = mean(Y) - b4 mean(X)",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The line lies above 0 where X is 0.",
        .papers = "isobe1990",
    },
    {
        .key = "lines.orthogonal.slope",
        .title = "Slope, orthogonal regression",
        .meaning =
            "It is the slope of the line with the smallest squared perpendicular distances, and 1 is best.",
        .formula = "b4 = (d + sign(b1) √(4 + d²))/2, d = b2 - 1/b1",
        .range = "unit of Y per unit of X",
        .better = Better::NearOne,
        .sign = "Observations rise with predictions.",
        .papers = "isobe1990",
        .others = "Total least squares; major axis; Deming regression with an error ratio of 1",
        .sameIn = "R: v <- prcomp(cbind(X, Y))$rotation, v[2, 1]/v[1, 1]",
        .remark = "It depends on the units: X and Y should have the same.",
    },
    {
        .key = "lines.reduced_major_axis.intercept",
        .title = "Intercept, reduced major axis",
        .meaning = "It is the intercept of the line whose slope is the ratio of the spreads, and 0 is best.",
        .formula = "a5 = mean(Y) - b5 mean(X)",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The line lies above 0 where X is 0.",
        .papers = "isobe1990",
    },
    {
        .key = "lines.reduced_major_axis.slope",
        .title = "Slope, reduced major axis",
        .meaning =
            "It is the ratio of the spread of the observations to that of the predictions, and 1 is best.",
        .formula = "b5 = sign(b1) √(b1 b2) = sign(r) SD(Y)/SD(X)",
        .range = "unit of Y per unit of X",
        .better = Better::NearOne,
        .sign = "Observations rise with predictions.",
        .papers = "isobe1990",
        .others = "Standardised major axis; geometric mean regression",
        .sameIn = "R: sign(cor(X, Y))*sd(Y)/sd(X)",
        .remark = "But for its sign it does not depend on how closely the pairs follow the line.",
    },
    {
        .key = "lines.mean_ols.intercept",
        .title = "Intercept, mean of the two least-squares lines",
        .meaning =
            "It is the intercept of the line with the mean of the two least-squares slopes, and 0 is best.",
        .formula = "a6 = mean(Y) - b6 mean(X)",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The line lies above 0 where X is 0.",
        .papers = "feigelson1992",
    },
    {
        .key = "lines.mean_ols.slope",
        .title = "Slope, mean of the two least-squares lines",
        .meaning = "It is the mean of the slopes of the two least-squares lines, and 1 is best.",
        .formula = "b6 = (b1 + b2)/2",
        .range = "unit of Y per unit of X",
        .better = Better::NearOne,
        .sign = "Observations rise with predictions.",
        .papers = "feigelson1992",
        .others = "Arithmetic mean regression",
    },
    {
        .key = "lines.intercept.sd",
        .title = "Standard error of a line's intercept",
        .meaning = "It is how far the line's intercept would typically vary from sample to sample, and "
                   "smaller is more precise.",
        .formula = "√Σ (Y - a - b X - N mean(X) I)²/N, I the pair's influence on the line's slope",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "isobe1990; feigelson1992",
        .sameIn = "R, least squares of Y on X: sqrt(diag(sandwich::vcovHC(lm(Y ~ X), type = \"HC0\")))[1]",
        .remark = "It holds for errors of any pattern and needs no error variance, so that it differs from "
                  "that of the main regression.",
    },
    {
        .key = "lines.intercept.p",
        .title = "P of a line's intercept of 0",
        .meaning = "It is the probability of an intercept at least this far from 0 if it were 0, so a small "
                   "value speaks against the model.",
        .formula = "2 P(T > |a/SDa|), N - 2 degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "isobe1990",
    },
    {
        .key = "lines.slope.sd",
        .title = "Standard error of a line's slope",
        .meaning = "It is how far the line's slope would typically vary from sample to sample, and smaller "
                   "is more precise.",
        .formula = "√Σ I², I = p (X - mean(X)) e1/Sxx + q (Y - mean(Y)) e2/Sxy, e1 and e2 the residuals of "
                   "the lines of b1 and b2, p and q the derivatives of the line's slope by b1 and b2",
        .range = "unit of Y per unit of X, 0 or more",
        .better = Better::Lower,
        .papers = "isobe1990; feigelson1992",
        .sameIn = "R, least squares of Y on X: sqrt(diag(sandwich::vcovHC(lm(Y ~ X), type = \"HC0\")))[2]",
        .remark = "It holds for errors of any pattern and needs no error variance, so that it differs from "
                  "that of the main regression.",
    },
    {
        .key = "lines.slope.p",
        .title = "P of a line's slope of 1",
        .meaning = "It is the probability of a slope at least this far from 1 if it were 1, so a small value "
                   "speaks against the model.",
        .formula = "2 P(T > |(b - 1)/SDb|), N - 2 degrees of freedom",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "isobe1990",
        .remark = "The slope is tested against 1, not against 0.",
    },
};

} // namespace

std::span<const Quantity> LineFamilyQuantities() {
    return quantities;
}

} // namespace corvane
