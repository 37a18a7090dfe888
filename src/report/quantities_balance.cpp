#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "balance.over_below",
        .title = "Overpredicted below the mean",
        .meaning =
            "It counts the pairs below the mean whose prediction is too large, and a quarter of all is best.",
        .formula = "number of pairs with Y - X <= 0 and X < mean(X); observed half: Y < mean(Y)",
        .range = "whole number, 0 to N",
        .papers = "harlow2006",
        .remark = "A pair without error counts as overpredicted.",
    },
    {
        .key = "balance.over_above",
        .title = "Overpredicted above the mean",
        .meaning =
            "It counts the pairs above the mean whose prediction is too large, and a quarter of all is best.",
        .formula = "number of pairs with Y - X <= 0 and X >= mean(X); observed half: Y >= mean(Y)",
        .range = "whole number, 0 to N",
        .papers = "harlow2006",
        .remark = "A pair without error counts as overpredicted, and one on the mean as above it.",
    },
    {
        .key = "balance.under_below",
        .title = "Underpredicted below the mean",
        .meaning =
            "It counts the pairs below the mean whose prediction is too small, and a quarter of all is best.",
        .formula = "number of pairs with Y - X > 0 and X < mean(X); observed half: Y < mean(Y)",
        .range = "whole number, 0 to N",
        .papers = "harlow2006",
    },
    {
        .key = "balance.under_above",
        .title = "Underpredicted above the mean",
        .meaning =
            "It counts the pairs above the mean whose prediction is too small, and a quarter of all is best.",
        .formula = "number of pairs with Y - X > 0 and X >= mean(X); observed half: Y >= mean(Y)",
        .range = "whole number, 0 to N",
        .papers = "harlow2006",
        .remark = "A pair on the mean counts as above it.",
    },
    {
        .key = "balance.cell_percent",
        .title = "Share of the pairs in a cell",
        .meaning = "It is the count beside it as a share of all pairs, and 25% in every cell is best.",
        .formula = "100 count/N",
        .range = "0 to 100%",
        .papers = "harlow2006",
    },
    {
        .key = "balance.even.x2",
        .title = "Chi-square of balanced cells",
        .meaning = "It tests whether each of the four cells has a quarter of the pairs, and 0 is best.",
        .formula = "Σ (count - N/4)²/(N/4)",
        .range = "0 or more; 3 degrees of freedom",
        .better = Better::Lower,
        .papers = "harlow2006; agresti1996",
        .sameIn = "R: chisq.test(c(OverBelow, OverAbove, UnderBelow, UnderAbove))$statistic",
        .remark = "It is large for a bias as well as for errors that change with the size of the values.",
    },
    {
        .key = "balance.even.p",
        .title = "P of balanced cells",
        .meaning = "It is the probability of cells at least this uneven if the model were balanced, so a "
                   "small value speaks against the model.",
        .formula = "P(Chi²(3) > X²)",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "harlow2006; agresti1996",
        .sameIn = "R: chisq.test(c(OverBelow, OverAbove, UnderBelow, UnderAbove))$p.value",
        .remark = "The label asks whether X² = 0.",
    },
    {
        .key = "balance.even.v",
        .title = "Cramér's V of balanced cells",
        .meaning = "It says how uneven the four cells are, whatever the number of pairs, and 0 is best.",
        .formula = "√(X²/(3 N))",
        .range = "0 to 1",
        .better = Better::Lower,
        .papers = "harlow2006; agresti1996",
    },
    {
        .key = "balance.even.c",
        .title = "Contingency coefficient of balanced cells",
        .meaning = "It says how uneven the four cells are, whatever the number of pairs, and 0 is best.",
        .formula = "√(X²/(X² + N))",
        .range = "0 to below 1",
        .better = Better::Lower,
        .papers = "harlow2006; agresti1996",
        .others = "Pearson's contingency coefficient C",
        .remark = "The label CCC does not mean the concordance correlation coefficient.",
    },
    {
        .key = "balance.association.x2",
        .title = "Chi-square of association",
        .meaning = "It tests whether over- and underprediction depend on the side of the dividing line, and "
                   "0 is best.",
        .formula = "Σ (count - row total × column total/N)²/(row total × column total/N)",
        .range = "0 or more; 1 degree of freedom",
        .better = Better::Lower,
        .papers = "harlow2006; agresti1996",
        .sameIn = "R: chisq.test(cells, correct = FALSE)$statistic, cells the matrix of counts",
        .remark = "It has no continuity correction. An empty row or column leaves the table, and X² is then "
                  "0 and P 1.",
    },
    {
        .key = "balance.association.p",
        .title = "P of association",
        .meaning = "It is the probability of an association at least this strong if there were none, so a "
                   "small value says that errors change with the size of the values.",
        .formula = "P(Chi²(1) > X²)",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "harlow2006; agresti1996",
        .sameIn = "R: chisq.test(cells, correct = FALSE)$p.value, cells the matrix of counts",
        .remark = "The label asks whether X² = 0.",
    },
    {
        .key = "balance.association.v",
        .title = "Cramér's V of association",
        .meaning = "It says how strongly over- and underprediction depend on the side of the dividing line, "
                   "and 0 is best.",
        .formula = "√(X²/N)",
        .range = "0 to 1",
        .better = Better::Lower,
        .papers = "harlow2006; agresti1996",
        .others = "Absolute phi coefficient of a 2 × 2 table",
        .sameIn = "R: vcd::assocstats(cells)$cramer, cells the matrix of counts",
    },
    {
        .key = "balance.association.c",
        .title = "Contingency coefficient of association",
        .meaning = "It says how strongly over- and underprediction depend on the side of the dividing line, "
                   "and 0 is best.",
        .formula = "√(X²/(X² + N))",
        .range = "0 to √½",
        .better = Better::Lower,
        .papers = "harlow2006; agresti1996",
        .others = "Pearson's contingency coefficient C",
        .sameIn = "R: vcd::assocstats(cells)$contingency, cells the matrix of counts",
        .remark = "The label CCC does not mean the concordance correlation coefficient. In a table of four "
                  "cells it does not reach the 1 that the comment promises.",
    },
    {
        .key = "balance.odds_ratio",
        .title = "Odds ratio",
        .meaning =
            "It compares the odds of overprediction on both sides of the dividing line, and 1 is best.",
        .formula = "((OverBelow + ½)(UnderAbove + ½))/((UnderBelow + ½)(OverAbove + ½))",
        .range = "above 0",
        .better = Better::NearOne,
        .papers = "harlow2006; agresti2002",
        .sameIn = "R: exp(coef(vcd::loddsratio(cells, correct = TRUE))), cells the matrix of counts",
        .remark = "Half a pair is added to every cell, empty or not. Above 1 the model overpredicts rather "
                  "below the line.",
    },
    {
        .key = "balance.odds_ratio.ln",
        .title = "Logarithm of the odds ratio",
        .meaning = "It is the odds ratio on a scale on which both directions are alike, and 0 is best.",
        .formula = "ln(odds ratio)",
        .range = "any number",
        .better = Better::NearZero,
        .sign = "The model overpredicts rather below the line than above it.",
        .papers = "harlow2006; agresti2002",
        .sameIn = "R: coef(vcd::loddsratio(cells, correct = TRUE)), cells the matrix of counts",
    },
    {
        .key = "balance.odds_ratio.ln.se",
        .title = "Standard error of the logarithm of the odds ratio",
        .meaning = "It is how far the logarithm would typically vary from sample to sample, and smaller is "
                   "more precise.",
        .formula = "√(Σ 1/(count + ½))",
        .range = "above 0",
        .better = Better::Lower,
        .papers = "harlow2006; agresti2002",
        .others = "ASE, asymptotic standard error",
        .sameIn = "R: sqrt(vcov(vcd::loddsratio(cells, correct = TRUE))), cells the matrix of counts",
    },
    {
        .key = "balance.odds_ratio.p",
        .title = "P of an odds ratio of 1",
        .meaning = "It is the probability of an odds ratio at least this far from 1 if it were 1, so a small "
                   "value says that errors change with the size of the values.",
        .formula = "2 (1 - Φ(|ln(odds ratio)/ASE|))",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "harlow2006; agresti2002",
        .sameIn =
            "R: lmtest::coeftest(vcd::loddsratio(cells, correct = TRUE))[4], cells the matrix of counts",
        .remark = "Unlike other probabilities it can print as 0.",
    },
    {
        .key = "orthogonal.over_below",
        .title = "Overpredicted, left of the perpendicular",
        .meaning = "It counts the pairs left of the perpendicular for which the line is too high.",
        .formula = "number of pairs with a + b X >= Y and X <= R, R = mean(X) - b (Y - mean(Y)) the place of "
                   "the perpendicular at the pair's Y",
        .range = "whole number, 0 to N",
        .papers = "harlow2006",
        .remark = "Ties are lopsided: a pair on the line counts as overpredicted here, but as underpredicted "
                  "right of the perpendicular. With a slope of exactly 0 the half of the fitted line divides "
                  "at the mean of X instead.",
    },
    {
        .key = "orthogonal.over_above",
        .title = "Overpredicted, right of the perpendicular",
        .meaning = "It counts the pairs right of the perpendicular for which the line is too high.",
        .formula = "number of pairs with a + b X > Y and X > R, R = mean(X) - b (Y - mean(Y)) the place of "
                   "the perpendicular at the pair's Y",
        .range = "whole number, 0 to N",
        .papers = "harlow2006",
        .remark = "Ties are lopsided: a pair on the line counts as underpredicted here, but as overpredicted "
                  "left of the perpendicular.",
    },
    {
        .key = "orthogonal.under_below",
        .title = "Underpredicted, left of the perpendicular",
        .meaning = "It counts the pairs left of the perpendicular for which the line is too low.",
        .formula = "number of pairs with a + b X < Y and X <= R, R = mean(X) - b (Y - mean(Y)) the place of "
                   "the perpendicular at the pair's Y",
        .range = "whole number, 0 to N",
        .papers = "harlow2006",
    },
    {
        .key = "orthogonal.under_above",
        .title = "Underpredicted, right of the perpendicular",
        .meaning = "It counts the pairs right of the perpendicular for which the line is too low.",
        .formula = "number of pairs with a + b X <= Y and X > R, R = mean(X) - b (Y - mean(Y)) the place of "
                   "the perpendicular at the pair's Y",
        .range = "whole number, 0 to N",
        .papers = "harlow2006",
        .remark = "Ties are lopsided: a pair on the line counts as underpredicted here, but as overpredicted "
                  "left of the perpendicular.",
    },
};

} // namespace

std::span<const Quantity> BalanceQuantities() {
    return quantities;
}

} // namespace corvane
