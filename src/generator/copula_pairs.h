#pragma once

#include <cstdint>
#include <span>

namespace corvane {

enum class CopulaFamily : std::int16_t { Frank = 1, Clayton = 2 };

/// The smallest double that U, V and W take; the largest is 1 minus it, which a double holds exactly.
inline constexpr double SmallestUniform = 0x1p-53;

/// The dependence parameter t at which pairs with normal margins have the correlation r:
/// E[z(U) z(W)] = r, z the standard normal quantile, to 1e-9 by quadrature.
///
///   Frank    C(u, w) = -ln(1 + (exp(-t u) - 1) (exp(-t w) - 1) / (exp(-t) - 1)) / t
///   Clayton  C(u, w) = (u^-t + w^-t - 1)^(-1/t)
///
/// (Nelsen, 2006, An Introduction to Copulas, families 4.2.5 and 4.2.1). t = 0 is independence and stands for
/// every r that is not above 0. What t = 2^30 gives is the strongest dependence.
double CopulaParameter(CopulaFamily family, double r);

/// Draws the partner of each uniform U by conditional inversion (Genest, 1987, Biometrika 74, 549-555):
/// W[i] solves dC(U[i], W)/dU = V[i]. U and V are independent, in [SmallestUniform, 1 - SmallestUniform], and
/// W has their length, may be the array V itself, and stays within the same limits. With r = 0 W is V.
void GenerateCopulaPairs(std::span<const double> U, std::span<const double> V, std::span<double> W, double r,
                         CopulaFamily family);

} // namespace corvane
