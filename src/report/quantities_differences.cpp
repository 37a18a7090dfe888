#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "kleijnen.intercept",
        .title = "Intercept of Kleijnen's regression",
        .meaning = "It is the difference that the line expects where predictions and observations add up to "
                   "0, and 0 is best.",
        .formula = "ß0 of the least-squares line X - Y = ß0 + ß1 (X + Y)",
        .range = "unit of Y",
        .better = Better::NearZero,
        .sign = "The model overpredicts where the sum is 0.",
        .papers = "kleijnen1987; kleijnen1996; kleijnen1998",
        .sameIn = "R: coef(lm(I(X - Y) ~ I(X + Y)))[1]",
        .remark = "The difference is X - Y here, the opposite of the deviation elsewhere.",
    },
    {
        .key = "kleijnen.slope",
        .title = "Slope of Kleijnen's regression",
        .meaning = "It is how much the difference rises with the size of the values, and 0 is best.",
        .formula = "ß1 of the least-squares line X - Y = ß0 + ß1 (X + Y) = (Var(X) - Var(Y))/Var(X + Y)",
        .range = "-1 to 1 where X and Y are not negatively correlated",
        .better = Better::NearZero,
        .sign = "The predictions vary more than the observations.",
        .papers = "kleijnen1987; kleijnen1996; kleijnen1998",
        .sameIn = "R: coef(lm(I(X - Y) ~ I(X + Y)))[2]",
    },
    {
        .key = "kleijnen.f",
        .title = "F of Kleijnen's regression",
        .meaning = "It tests equal means and equal variances of predictions and observations at once, and a "
                   "small value is good.",
        .formula = "((Σ D² - SSE)/2)/(SSE/(N - 2)), SSE of the regression of X - Y on X + Y",
        .range = "0 or more; 2 and N - 2 degrees of freedom",
        .better = Better::Lower,
        .papers = "kleijnen1987; kleijnen1996; kleijnen1998",
        .others = "Bradley-Blackwood test",
        .sameIn = "R: car::linearHypothesis(lm(D ~ S, data.frame(D = X - Y, S = X + Y)), c(\"(Intercept) = "
                  "0\", \"S = 0\"))$F[2]",
    },
    {
        .key = "kleijnen.p",
        .title = "Distribution function of Kleijnen's F",
        .meaning = "It is a value between 0 and 1 that rises with F, so unlike a probability of the "
                   "hypothesis it is large where the model is bad.",
        .formula = "P(F(N - 2, 2) < F)",
        .range = "0 to 1",
        .better = Better::Lower,
        .papers = "kleijnen1987; kleijnen1996; kleijnen1998",
        .sameIn = "R: pf(F, N - 2, 2)",
        .remark = "It is the distribution function itself, with the degrees of freedom in the order N - 2 "
                  "and 2. The test's true P is pf(F, 2, N - 2, lower.tail = FALSE). The verdict below "
                  "nevertheless rejects the model where this value is under 0.05.",
    },
    {
        .key = "bland_altman.intercept",
        .title = "Intercept of the Bland-Altman regression",
        .meaning = "It is the average that the line expects where the difference is 0.",
        .formula = "ß0 of the least-squares line (X + Y(1))/2 = ß0 + ß1 (X - Y)",
        .range = "unit of Y",
        .papers = "bland1986",
        .sameIn = "R: coef(lm(I((X + Y[1])/2) ~ I(X - Y)))[1]",
        .remark = "The printed equation has the sides swapped: the average is regressed on the difference. "
                  "The average takes the first observation, Y(1), for every pair.",
    },
    {
        .key = "bland_altman.slope",
        .title = "Slope of the Bland-Altman regression",
        .meaning = "It says whether the difference changes with the size of the values, and 0 is best.",
        .formula = "ß1 of the least-squares line (X + Y(1))/2 = ß0 + ß1 (X - Y)",
        .range = "any number",
        .better = Better::NearZero,
        .sign = "Large predictions come with overprediction.",
        .papers = "bland1986",
        .sameIn = "R: coef(lm(I((X + Y[1])/2) ~ I(X - Y)))[2]",
        .remark = "The printed equation has the sides swapped: the average is regressed on the difference. "
                  "The average takes the first observation, Y(1), for every pair.",
    },
    {
        .key = "threshold.value",
        .title = "Threshold",
        .meaning = "It is the value, or the rank, that divides the table.",
        .formula = "as set in the options, rounded to a whole number",
        .range = "whole number",
        .remark = "A text that is no number leaves the threshold of the table before, or 0.",
    },
    {
        .key = "threshold.both_below",
        .title = "Both at or below the threshold",
        .meaning = "It counts the rows that prediction and observation agree to put below the threshold, and "
                   "many are good.",
        .formula = "number of rows with X <= threshold and Y <= threshold",
        .range = "whole number, 0 or more",
        .better = Better::Higher,
        .others = "True negatives",
        .remark = "A row with both exactly on the threshold is in none of the four cells. The table counts "
                  "the rows that have a rank cell, not the run's pairs.",
    },
    {
        .key = "threshold.predicted_above",
        .title = "Only the prediction above the threshold",
        .meaning = "It counts the rows whose prediction is above the threshold although the observation is "
                   "not, and few are good.",
        .formula = "number of rows with X > threshold and Y <= threshold",
        .range = "whole number, 0 or more",
        .better = Better::Lower,
        .others = "False positives, false alarms",
    },
    {
        .key = "threshold.observed_above",
        .title = "Only the observation above the threshold",
        .meaning = "It counts the rows whose observation is above the threshold although the prediction is "
                   "not, and few are good.",
        .formula = "number of rows with X <= threshold and Y > threshold",
        .range = "whole number, 0 or more",
        .better = Better::Lower,
        .others = "False negatives, misses",
    },
    {
        .key = "threshold.both_above",
        .title = "Both above the threshold",
        .meaning = "It counts the rows that prediction and observation agree to put above the threshold, and "
                   "many are good.",
        .formula = "number of rows with X > threshold and Y > threshold",
        .range = "whole number, 0 or more",
        .better = Better::Higher,
        .others = "True positives, hits",
    },
    {
        .key = "threshold.cell_percent",
        .title = "Share of the rows in a cell",
        .meaning = "It is the count beside it as a share of the rows that were counted.",
        .formula = "100 count/rows counted",
        .range = "0 to 100%",
        .remark = "Rows exactly on the threshold in both count in the whole, so that the four shares can add "
                  "up to less than 100%.",
    },
    {
        .key = "threshold.identical",
        .title = "Identical X and Y",
        .meaning = "It counts the rows whose prediction and observation, or whose ranks, are equal, and many "
                   "are good.",
        .formula = "number of rows with X = Y",
        .range = "whole number, 1 or more",
        .better = Better::Higher,
        .remark = "The line appears only where there are such rows, which are in their cells as well.",
    },
    {
        .key = "threshold.all_identical",
        .title = "Identical X, Y and threshold",
        .meaning = "It counts the rows whose prediction and observation, or whose ranks, are both exactly on "
                   "the threshold.",
        .formula = "number of rows with X = Y = threshold",
        .range = "whole number, 1 or more",
        .remark = "The line appears only where there are such rows, and these are in none of the four cells.",
    },
    {
        .key = "distance.euclidean",
        .title = "Euclidean distance",
        .meaning = "It is the distance between predictions and observations as points in N dimensions, and 0 "
                   "is best.",
        .formula = "√(Σ D²)",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "kraiklo2006",
        .others = "√N times RMSEP",
        .sameIn = "R: dist(rbind(X, Y)); scipy: spatial.distance.euclidean(X, Y)",
        .remark = "It grows with the number of pairs.",
    },
    {
        .key = "distance.minkowski",
        .title = "Minkowski distance of order m",
        .meaning =
            "It is a distance in which large errors weigh the more the higher the order is, and 0 is best.",
        .formula = "(Σ |D|^m)^(1/m), m = 1 to 7",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "kraiklo2006",
        .others = "Manhattan or city-block distance (m = 1); Euclidean distance (m = 2)",
        .sameIn = "R: dist(rbind(X, Y), \"minkowski\", p = m); scipy: spatial.distance.minkowski(X, Y, m)",
    },
    {
        .key = "distance.canberra",
        .title = "Canberra distance",
        .meaning = "It adds up the errors, each as a share of its pair's size, and 0 is best.",
        .formula = "Σ |D|/(|X| + |Y|), pairs of zeros left out",
        .range = "0 to N",
        .better = Better::Lower,
        .papers = "kraiklo2006",
        .sameIn = "R: dist(rbind(X, Y), \"canberra\"), where no pair is of zeros; scipy: "
                  "spatial.distance.canberra(X, Y)",
        .remark = "R scales the sum up for pairs of zeros.",
    },
    {
        .key = "distance.czekanowski",
        .title = "Czekanowski distance",
        .meaning = "It is the sum of the errors as a share of the sum of all values, and 0 is best.",
        .formula = "Σ |D|/Σ (|X| + |Y|)",
        .range = "0 to 1",
        .better = Better::Lower,
        .papers = "kraiklo2006",
        .others = "Bray-Curtis dissimilarity; one minus Sørensen's quantitative index",
        .sameIn = "R, no negative values: vegan::vegdist(rbind(X, Y), \"bray\"); scipy, no negative values: "
                  "spatial.distance.braycurtis(X, Y)",
    },
    {
        .key = "distance.kullback_leibler",
        .title = "Kullback-Leibler divergence",
        .meaning = "It says how much is lost by describing the observations' shares of their sum by the "
                   "predictions', and 0 is best.",
        .formula = "Σ q ln(q/p), p = X/Σ X and q = Y/Σ Y over the pairs with both positive",
        .range = "0 or more, natural logarithm",
        .better = Better::Lower,
        .papers = "kraiklo2006",
        .others = "Relative entropy",
        .sameIn = "scipy: stats.entropy(Y, X), where all values are positive",
        .remark = "It is not symmetric and does not see a factor common to all predictions. Pairs with a "
                  "value of 0 or less are left out.",
    },
};

} // namespace

std::span<const Quantity> DifferenceQuantities() {
    return quantities;
}

} // namespace corvane
