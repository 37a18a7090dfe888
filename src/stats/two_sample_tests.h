#pragma once

#include <span>

#include "stats/cancellation.h"

namespace corvane::stats {

struct TestResult {
    double Statistic = 0.0;
    double P = 1.0; ///< two-sided
};

// Student's t tests of equal means and the F test of equal variances; a statistic has the sign of Y - X, s^2
// are sample variances (divisor n - 1). Means and variances are summed to twice the digits, so that a small
// difference of large means keeps its own. A zero denominator saturates the statistic with P = 0, 0/0 is 0
// with P = 1; so are samples without degrees of freedom.

/// T = (mean Y - mean X) / sqrt(s^2 (1/NX + 1/NY)), s^2 the pooled variance, NX + NY - 2 degrees of freedom.
/// The lengths may differ; needs one element on each side and three in all.
TestResult TTestEqualVariance(std::span<const double> y, std::span<const double> x,
                              const std::stop_token& stop = {});

/// T = (mean Y - mean X) / sqrt(VarX/NX + VarY/NY), degrees of freedom after Welch (1947, Biometrika 34,
/// 28-35): (VarX/NX + VarY/NY)^2 / ((VarX/NX)^2 / (NX - 1) + (VarY/NY)^2 / (NY - 1)). The lengths may differ;
/// needs two elements on each side.
TestResult TTestUnequalVariance(std::span<const double> y, std::span<const double> x,
                                const std::stop_token& stop = {});

/// T = (mean Y - mean X) / sqrt((VarX + VarY - 2 CovXY) / N), N - 1 degrees of freedom. The radicand is
/// taken pair by pair, as the variance of Y - X that it equals: where predictions are close, the three terms
/// cancel to their last digits. Of unequal lengths the shorter counts; needs two pairs.
TestResult TTestPairedCovariance(std::span<const double> y, std::span<const double> x,
                                 const std::stop_token& stop = {});

/// T = mean (Y - X) / sqrt(Var(Y - X) / N), N - 1 degrees of freedom: the same number.
TestResult TTestPairedDifference(std::span<const double> y, std::span<const double> x,
                                 const std::stop_token& stop = {});

/// F = VarY / VarX with NY - 1 and NX - 1 degrees of freedom; P is twice the smaller tail. VarY = 0 < VarX:
/// F = 0, P = 0. The lengths may differ; needs two elements on each side.
TestResult FTestVariance(std::span<const double> y, std::span<const double> x,
                         const std::stop_token& stop = {});

} // namespace corvane::stats
