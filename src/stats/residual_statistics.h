#pragma once

#include <span>
#include <vector>

#include "stats/cancellation.h"

namespace corvane::stats {

/// Residuals of a line and their diagnostics, one element a pair, in row order.
struct Residuals {
    double MSE = 0.0;              ///< sum of e^2 over N - 2
    double RootMSE = 0.0;          ///< in range where MSE is not
    std::vector<double> Deviation; ///< Y - X
    std::vector<double> Fitted;    ///< a + b X
    std::vector<double> Residue;   ///< e = Y - Fitted
    std::vector<double> SERes;     ///< sqrt(MSE (1 - h))
    std::vector<double> StdtRes;   ///< t = e / SERes
    std::vector<double>
        RStdtRes; ///< t sqrt((N - 3) / (N - 2 - t^2)): the pair itself left out of the variance
    std::vector<double> Leverage;  ///< h = 1/N + (X - mean X)^2 / ((N - 1) VarX)
    std::vector<double> CookD;     ///< t^2 h / (2 (1 - h))
    std::vector<double> DFFITS;    ///< RStdtRes sqrt(h / (1 - h))
    std::vector<double> NormRes;   ///< sqrt(MSE) Phi^-1((k - 0.375) / (N + 0.25)), k the (mean) rank of e
    std::vector<double> PRESS;     ///< e / (1 - h)
    std::vector<double> SemiStdtR; ///< e / sqrt(MSE)
    std::vector<double> WtDev;     ///< D |D| / sum D^2: the signed share of the total squared deviation
};

/// Diagnostics of the line a + b X (any line, not the least-squares one alone), after Neter, Kutner,
/// Nachtsheim and Wasserman, Applied Linear Statistical Models (1996), chapters 3 and 9. VarX, MeanX and
/// MeanY are not read: all comes from the samples, which keep more digits.
///
/// A zero denominator saturates its statistic with the sign of the numerator, 0/0 is 0: residuals that are
/// all 0 have all their ratios 0; a pair of leverage 1 (up to rounding) has SERes 0; RStdtRes is 0 at N = 3,
/// and saturated where t^2 reaches N - 2. N < 3: MSE 0. Constant X: leverage 1/N. The arrays always have N
/// elements.
Residuals ResidualStatistics(double a, double b, std::span<const double> x, std::span<const double> y,
                             double VarX, double MeanX, double MeanY, const std::stop_token& stop = {});

} // namespace corvane::stats
