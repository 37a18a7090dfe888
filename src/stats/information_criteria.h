#pragma once

#include <optional>
#include <span>

namespace corvane::stats {

/// Akaike's criteria of one model; only their differences between models mean anything.
struct InformationCriteria {
    double AIC = 0.0;
    double AICc = 0.0;      ///< corrected for small samples
    double AICcPrime = 0.0; ///< AICc less the term n (ln(2 pi) + 1), which all models share
};

/// The criteria of the least-squares line of y on x over n pairs, with k = 3 parameters (intercept, slope,
/// error variance) and SSE the line's residual sum of squares:
///
/// AIC = n (ln(SSE/n) + ln(2 pi) + 1) + 2 k, AICc = AIC + 2 k (k + 1)/(n - k - 1): Burnham and Anderson
/// (2002), Model Selection and Multimodel Inference. AICc' = AICc - n (ln(2 pi) + 1): Burnham et al. (2011).
/// 2 pi is taken as 6.283186. The unit of y adds the same to every model's.
///
/// n < 4 or SSE = 0: all three 0. n = 4, for which AICc divides by 0: none.
std::optional<InformationCriteria> LineInformationCriteria(std::span<const double> x,
                                                           std::span<const double> y);

/// The Akaike weight of the second of two models, exp(-D/2)/(1 + exp(-D/2)), between 0 and 1. D is its
/// criterion less that of the first: Burnham and Anderson (2002). Far apart, the weights are 0 and 1.
double AkaikeWeight(double difference);

/// How many times likelier the better of the two models is, the ratio of their Akaike weights; 1 or more.
/// None where the other's weight is 0 to a double.
std::optional<double> EvidenceRatio(double difference);

} // namespace corvane::stats
