#pragma once

#include "report/place.h"

namespace corvane {

/// The places of the residual analysis: of its listing, which the residue file holds, too, and of its text.
inline constexpr Place ResidualPlaces[] = {
    {"Row", "pair.number", "#", 3, 0},
    {"X", "pair.predicted", "X values", 9, 4},
    {"Y", "pair.observed", "Y values", 9, 4},
    {"Deviation", "deviation", "Deviation", 9, 4},
    {"Fitted", "residual.fitted", "Y Pred.", 9, 4},
    {"Residue", "residual", "Residue", 9, 4},
    {"NormRes", "residual.normal", "NormRes", 9, 4},
    {"SERes", "residual.se", "SE Res.", 9, 4},
    {"SemiStdtR", "residual.semi_studentized", "SemiStdtR", 9, 4},
    {"StdtRes", "residual.studentized", "StdtRes", 9, 4},
    {"RStdtRes", "residual.deleted_studentized", "RStdtRes", 9, 4},
    {"Leverage", "residual.leverage", "Leverage", 9, 4},
    {"CookD", "residual.cook", "Cook'D", 9, 4},
    {"DFFITS", "residual.dffits", "DFFITS", 9, 4},
    {"PRESS", "residual.press", "PRESS", 9, 4},

    {"Influential.Deviation", "influence.deviations", "Deviation                               : ", 4, 0,
     Look::LeadingZero},
    {"Influential.Residue", "influence.residuals", "Residue                                 : ", 4, 0,
     Look::LeadingZero},
    {"Influential.RStdtRes", "influence.deleted_studentized", "RStdtResidue (<-2.5 or >2.5)            : ", 4,
     0, Look::LeadingZero},
    {"LeverageLimit", "influence.leverage.limit", "Leverage > ", 6, 4},
    {"Influential.Leverage", "influence.leverage", "                       : ", 4, 0, Look::LeadingZero},
    {"Influential.CookD", "influence.cook", "Cook's D (P(F(Cook's D, p, n-p)) > 0.5) : ", 4, 0,
     Look::LeadingZero},
    {"DFFITSLimit", "influence.dffits.limit", "|DFFITS| > ", 6, 4},
    {"Influential.DFFITS", "influence.dffits", "                       : ", 4, 0, Look::LeadingZero},

    {"DeviationLower", "envelope.limits", "Deviation interval [lower - upper]                     : [", 10, 4,
     Look::Trimmed},
    {"DeviationUpper", "envelope.limits", ", ", 10, 4, Look::Trimmed},
    {"DeviationPercentOfMeanY", "envelope.percent_of_mean",
     "Deviation interval as ± % of the Mean of Y (observed)  : ", 10, 4},
    {"Confidence", "envelope.confidence", "Approximate (1 - Alpha), %                             :", 10, 2},
    {"Above", "envelope.above", "Number of data points above the upper acceptance limit :", 10, 0},
    {"AbovePercent", "envelope.percent", " ("},
    {"Below", "envelope.below", "Number of data points below the lower acceptance limit :", 10, 0},
    {"BelowPercent", "envelope.percent", " ("},
    {"OutsidePercent", "envelope.percent", "Percentage of data points out of the acceptance limits :"},
};

} // namespace corvane
