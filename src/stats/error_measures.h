#pragma once

#include <array>
#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

/// Measures of the error of prediction D = Y - X, X predicted, Y observed.
struct ErrorMeasures {
    double RSquared = 0.0;             ///< Pearson's r squared
    double MeanBias = 0.0;             ///< mean of D
    double PercentBias = 0.0;          ///< 100 sum of (X - Y) over sum of Y
    double MAE = 0.0;                  ///< mean of |D|
    double MAPE = 0.0;                 ///< 100 mean of |D| / |Y|, per cent, over the pairs with Y != 0
    double MSEP = 0.0;                 ///< sum of D^2 over N
    double VarMSEP = 0.0;              ///< variance of MSEP, units to the fourth power
    std::array<double, 5> MSEPParts{}; ///< terms 0 + 1 + 2 = 0 + 3 + 4 = MSEP
    /// What has a value where those squares are out of a double's range:
    double RMSEP = 0.0;                 ///< root of MSEP
    double SDMSEP = 0.0;                ///< root of VarMSEP
    double CVMSEP = 0.0;                ///< SDMSEP / MSEP
    std::array<double, 5> MSEPShares{}; ///< MSEPParts / MSEP
    double MEF = 0.0;                   ///< modelling efficiency
    double MaxError = 0.0;              ///< largest |D|
    double CD = 0.0;                    ///< coefficient of model determination
};

/// MSEP and its variance, as in ErrorMeasures.
struct SquaredError {
    double MSEP = 0.0;
    double VarMSEP = 0.0;
};

/// MSEP and its variance, sum of (D^2 - MSEP)^2 / (N (N - 1)): Wallach and Goffinet (1989), Ecological
/// Modelling 44, 299-306. With Sx, Sy, r of divisor N and b the slope of Y on X the parts of MSEP are
/// (mean X - mean Y)^2, (Sx - Sy)^2, 2 Sx Sy (1 - r), Sx^2 (1 - b)^2, Sy^2 (1 - r^2), each computed without
/// the cancellation of its formula. MEF = 1 - sum D^2 / sum (Y - MeanY)^2 and CD = sum (Y - MeanY)^2 /
/// sum (X - MeanY)^2: Loague and Green (1991), Journal of Contaminant Hydrology 7, 51-73.
///
/// The percent bias has the sign of R hydroGOF's pbias, that of predicted less observed.
///
/// MeanY is the mean of y, which the caller holds; MeanX is not read. A zero denominator saturates (MEF at
/// the lowest double); with a zero numerator as well the measure is 0. No pair with Y != 0: MAPE = 0. N = 0:
/// all 0.
ErrorMeasures DiverseStatistics(std::span<const double> x, std::span<const double> y, double MeanX,
                                double MeanY, const std::stop_token& stop = {});

/// The mean squared error and its variance alone, from the differences D, with the digits that
/// DiverseStatistics gives them. N = 0: both 0.
SquaredError MeanSquaredError(std::span<const double> difference, const std::stop_token& stop = {});

} // namespace corvane::stats
