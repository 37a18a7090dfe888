#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "msep",
        .title = "Mean square error of prediction",
        .meaning = "It is the average squared error of the predictions, and smaller is better.",
        .formula = "MSEP = Σ D²/N",
        .range = "squared unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "bibby1977; wallach1989",
        .others = "MSE of the predictions, MSD",
        .sameIn = "R: Metrics::mse(actual = Y, predicted = X); R: hydroGOF::mse(sim = X, obs = Y)",
        .remark = "A few large errors can dominate it.",
    },
    {
        .key = "msep.variance",
        .title = "Variance of MSEP",
        .meaning = "It says how far MSEP would vary from sample to sample, and smaller is more precise.",
        .formula = "Σ (D² - MSEP)²/(N (N - 1))",
        .range = "fourth power of the unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "wallach1989",
        .sameIn = "R: var((Y - X)^2)/N",
    },
    {
        .key = "msep.sd",
        .title = "Standard error of MSEP",
        .meaning =
            "It is how far MSEP would typically vary from sample to sample, and smaller is more precise.",
        .formula = "√(variance of MSEP)",
        .range = "squared unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "wallach1989",
        .sameIn = "R: sd((Y - X)^2)/sqrt(N)",
    },
    {
        .key = "msep.cv",
        .title = "Coefficient of variation of MSEP",
        .meaning = "It is the standard error of MSEP as a share of MSEP, and smaller is more precise.",
        .formula = "100 √(variance of MSEP)/MSEP",
        .range = "%, 0 or more",
        .better = Better::Lower,
        .papers = "wallach1989",
    },
    {
        .key = "rmsep",
        .title = "Root mean square error of prediction",
        .meaning = "It is the typical size of an error of prediction with more weight on large errors, and "
                   "smaller is better.",
        .formula = "RMSEP = √MSEP",
        .range = "unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "bibby1977",
        .others = "RMSE; RMSD",
        .sameIn = "R: Metrics::rmse(actual = Y, predicted = X); R: hydroGOF::rmse(sim = X, obs = Y)",
    },
    {
        .key = "rmsep.percent_of_x",
        .title = "RMSEP in percent of the mean of X",
        .meaning = "It is RMSEP as a share of the average prediction, and smaller is better.",
        .formula = "100 RMSEP/mean(X)",
        .range = "%",
        .better = Better::Lower,
        .papers = "bibby1977",
        .remark = "It is negative where the mean is.",
    },
    {
        .key = "rmsep.percent_of_y",
        .title = "RMSEP in percent of the mean of Y",
        .meaning = "It is RMSEP as a share of the average observation, and smaller is better.",
        .formula = "100 RMSEP/mean(Y)",
        .range = "%",
        .better = Better::Lower,
        .papers = "bibby1977",
        .others = "CV(RMSE); normalised RMSE by the mean, not by SD or range as nrmse of hydroGOF",
        .remark = "It is negative where the mean is.",
    },
    {
        .key = "msep.part.mean_bias",
        .title = "MSEP from mean bias",
        .meaning = "It is the part of MSEP that comes from predicting too high or too low on average, and "
                   "smaller is better.",
        .formula = "(mean(X) - mean(Y))²",
        .range = "squared unit of Y, 0 to MSEP",
        .better = Better::Lower,
        .papers = "bibby1977",
        .others = "Squared bias",
    },
    {
        .key = "msep.part.mean_bias.percent",
        .title = "Share of mean bias in MSEP",
        .meaning = "It is the share of MSEP that comes from predicting too high or too low on average, and "
                   "smaller is better.",
        .formula = "100 (mean(X) - mean(Y))²/MSEP",
        .range = "0 to 100%",
        .better = Better::Lower,
        .papers = "bibby1977",
        .others = "Theil's bias proportion UM, there from 0 to 1",
    },
    {
        .key = "msep.part.unequal_variances",
        .title = "MSEP from unequal variances",
        .meaning = "It is the part of MSEP that comes from predictions spread more or less widely than "
                   "observations, and smaller is better.",
        .formula = "(Sx - Sy)², Sx and Sy the SDs of divisor N",
        .range = "squared unit of Y, 0 to MSEP",
        .better = Better::Lower,
        .papers = "bibby1977",
    },
    {
        .key = "msep.part.unequal_variances.percent",
        .title = "Share of unequal variances in MSEP",
        .meaning = "It is the share of MSEP that comes from predictions spread more or less widely than "
                   "observations, and smaller is better.",
        .formula = "100 (Sx - Sy)²/MSEP",
        .range = "0 to 100%",
        .better = Better::Lower,
        .papers = "bibby1977",
        .others = "Theil's variance proportion US, there from 0 to 1",
    },
    {
        .key = "msep.part.incomplete_covariation",
        .title = "MSEP from incomplete covariation",
        .meaning = "It is the part of MSEP that comes from predictions and observations not rising and "
                   "falling together, and smaller is better.",
        .formula = "2 Sx Sy (1 - r), Sx and Sy the SDs of divisor N",
        .range = "squared unit of Y, 0 to MSEP",
        .better = Better::Lower,
        .papers = "bibby1977",
    },
    {
        .key = "msep.part.incomplete_covariation.percent",
        .title = "Share of incomplete covariation in MSEP",
        .meaning = "It is the share of MSEP that comes from predictions and observations not rising and "
                   "falling together, and a large share says that bias and spread are right.",
        .formula = "100 × 2 Sx Sy (1 - r)/MSEP",
        .range = "0 to 100%",
        .better = Better::Higher,
        .papers = "bibby1977",
        .others = "Theil's covariance proportion UC, there from 0 to 1",
    },
    {
        .key = "msep.part.systematic_bias",
        .title = "MSEP from systematic bias",
        .meaning = "It is the part of MSEP that comes from a slope other than 1, and smaller is better.",
        .formula = "Sx² (1 - b)², b the least-squares slope of Y on X, divisor N",
        .range = "squared unit of Y, 0 to MSEP",
        .better = Better::Lower,
        .papers = "bibby1977",
        .remark = "The slope is that of least squares whatever the run's method.",
    },
    {
        .key = "msep.part.systematic_bias.percent",
        .title = "Share of systematic bias in MSEP",
        .meaning = "It is the share of MSEP that comes from a slope other than 1, and smaller is better.",
        .formula = "100 Sx² (1 - b)²/MSEP",
        .range = "0 to 100%",
        .better = Better::Lower,
        .papers = "bibby1977",
        .others = "Theil's regression proportion UR, there from 0 to 1",
        .remark = "The slope is that of least squares whatever the run's method.",
    },
    {
        .key = "msep.part.random_errors",
        .title = "MSEP from random errors",
        .meaning = "It is the part of MSEP that no straight-line correction of the predictions could remove, "
                   "and smaller is better.",
        .formula = "Sy² (1 - r²), divisor N",
        .range = "squared unit of Y, 0 to MSEP",
        .better = Better::Lower,
        .papers = "bibby1977",
        .sameIn = "R: deviance(lm(Y ~ X))/N",
    },
    {
        .key = "msep.part.random_errors.percent",
        .title = "Share of random errors in MSEP",
        .meaning = "It is the share of MSEP that no straight-line correction of the predictions could "
                   "remove, and a large share says that there is no bias.",
        .formula = "100 Sy² (1 - r²)/MSEP",
        .range = "0 to 100%",
        .better = Better::Higher,
        .papers = "bibby1977",
        .others = "Theil's disturbance proportion UD, there from 0 to 1",
        .sameIn = "R: 100*deviance(lm(Y ~ X))/sum((Y - X)^2)",
    },
    {
        .key = "bootstrap.count",
        .title = "Number of sub-samples",
        .meaning = "It is how many sub-samples were asked for.",
        .formula = "as set in the options",
        .range = "whole number",
    },
    {
        .key = "bootstrap.size",
        .title = "Size of a sub-sample",
        .meaning = "It is how many pairs a sub-sample has on average.",
        .formula = "percentage × N/100, rounded",
        .range = "whole number, 3 or more",
        .remark = "Every pair is drawn with the chance of the percentage, at most once, so that sizes vary. "
                  "It is a bootstrap by name, not one that draws with replacement.",
    },
    {
        .key = "bootstrap.msep.mean",
        .title = "Mean MSEP of the sub-samples",
        .meaning = "It is the average of the sub-samples' MSEP and should be near that of all pairs.",
        .formula = "mean(MSEP of a sub-sample)",
        .range = "squared unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "wallach1989",
        .remark = "The draws depend on the seed, and a sub-sample without pairs counts as 0.",
    },
    {
        .key = "bootstrap.msep.variance",
        .title = "Variance of the sub-samples' MSEP",
        .meaning = "It says how far MSEP depends on which pairs are in the sample, and smaller is better.",
        .formula = "Var(MSEP of a sub-sample), divisor sub-samples - 1",
        .range = "fourth power of the unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "wallach1989",
    },
    {
        .key = "bootstrap.variance.mean",
        .title = "Mean variance of the sub-samples' MSEP",
        .meaning = "It is the average of the variances that the sub-samples state for their MSEP, and "
                   "smaller is more precise.",
        .formula = "mean(variance of MSEP of a sub-sample)",
        .range = "fourth power of the unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "wallach1989",
        .remark = "It is of smaller samples and so larger than that of all pairs.",
    },
    {
        .key = "bootstrap.variance.variance",
        .title = "Variance of the variance of MSEP",
        .meaning = "It says how far the stated variance of MSEP depends on which pairs are in the sample, "
                   "and smaller is more precise.",
        .formula = "Var(variance of MSEP of a sub-sample), divisor sub-samples - 1",
        .range = "eighth power of the unit of Y, 0 or more",
        .better = Better::Lower,
        .papers = "wallach1989",
    },
};

} // namespace

std::span<const Quantity> MsepQuantities() {
    return quantities;
}

} // namespace corvane
