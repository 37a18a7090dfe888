#include "stats/distributions.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <boost/math/special_functions/beta.hpp>
#include <boost/math/special_functions/erf.hpp>
#include <boost/math/special_functions/gamma.hpp>

#include "stats/sums.h"

namespace corvane::stats {

namespace {

namespace policies = boost::math::policies;

/// Errors come back as values and not as exceptions, and everything is computed in double, so that results do
/// not depend on whether long double is wider on the machine at hand.
using Policy = policies::policy<
    policies::domain_error<policies::ignore_error>, policies::pole_error<policies::ignore_error>,
    policies::overflow_error<policies::ignore_error>, policies::underflow_error<policies::ignore_error>,
    policies::denorm_error<policies::ignore_error>, policies::rounding_error<policies::ignore_error>,
    policies::evaluation_error<policies::ignore_error>,
    policies::indeterminate_result_error<policies::ignore_error>, policies::promote_float<false>,
    policies::promote_double<false>, policies::max_root_iterations<400>>;

double Probability(double value) {
    return std::clamp(Finite(value), 0.0, 1.0);
}

bool Positive(double value) {
    return value > 0.0;
} // false for NaN

enum class Side { Inside, Outside };

/// I_z(A, B), the regularised incomplete beta function, or 1 - I_z(A, B) (Outside), for z <= 1/2. Whichever
/// is the smaller is computed, the other is its complement.
double IncompleteBeta(double A, double B, double z, Side side) {
    const double inside = Probability(boost::math::ibeta(A, B, z, Policy()));
    if (side == Side::Inside)
        return inside;
    return inside < 0.5 ? 1.0 - inside : Probability(boost::math::ibetac(A, B, z, Policy()));
}

Side Opposite(Side side) {
    return side == Side::Inside ? Side::Outside : Side::Inside;
}

/// P(|t| <= T) or its complement for T >= 0: I_z(1/2, DF/2) with z = T^2 / (DF + T^2).
double TwoSidedT(double T, double DF, Side side) {
    if (std::isinf(DF))
        return side == Side::Inside ? std::erf(T / std::numbers::sqrt2) : std::erfc(T / std::numbers::sqrt2);
    if (T * T <= DF)
        return IncompleteBeta(0.5, 0.5 * DF, T * T / (DF + T * T), side);
    const double ratio = T / std::sqrt(DF);
    if (ratio > 1e100) {
        // Leading term of the tail, 2 ratio^-DF / (DF B(DF/2, 1/2)); the next is smaller by DF / ratio^2.
        const double tail = 2.0 * std::pow(ratio, -DF) / (DF * boost::math::beta(0.5 * DF, 0.5, Policy()));
        return side == Side::Inside ? 1.0 - tail : tail;
    }
    return IncompleteBeta(0.5 * DF, 0.5, 1.0 / (1.0 + ratio * ratio), Opposite(side));
}

/// P(f <= F) or its complement for F > 0: I_z(DF1/2, DF2/2) with z = DF1 F / (DF1 F + DF2).
double SidedF(double F, double DF1, double DF2, Side side) {
    const double quotient = Finite(F * (Finite(DF1) / Finite(DF2)));
    if (quotient <= 1.0)
        return IncompleteBeta(0.5 * DF1, 0.5 * DF2, quotient / (1.0 + quotient), side);
    return IncompleteBeta(0.5 * DF2, 0.5 * DF1, 1.0 / (1.0 + quotient), Opposite(side));
}

/// The T > 0 with P(|t| <= T) = inside, 0 < inside < 1, and P(|t| > T) = outside.
double TwoSidedQuantileT(double inside, double outside, double DF) {
    // The far tail is its leading term alone, see TwoSidedT.
    const double beta = boost::math::beta(0.5 * DF, 0.5, Policy());
    const double ratio = std::pow(0.5 * outside * DF * beta, -1.0 / DF);
    if (ratio > 1e100)
        return Finite(std::sqrt(DF) * ratio);

    const boost::math::students_t_distribution<double, Policy> law(DF);
    double T = 0.5 * inside / boost::math::pdf(law, 0.0); // near the centre, where the density is flat
    if (inside >= 0.01) {
        T = std::fabs(Finite(boost::math::quantile(law, 0.5 * outside)));
        const double tail = TwoSidedT(T, DF, Side::Outside);
        if (!(tail > 0.5 * outside && tail < 2.0 * outside)) // the library gave up, as it does below 1e-250
            T = std::sqrt(DF) * ratio;
    }
    for (int round = 0; round < 50; ++round) {
        const double density = 2.0 * boost::math::pdf(law, T);
        // Newton: in the tail on the logarithms of probability and T, where the curve is nearly straight.
        double factor = 1.0;
        if (inside < 0.5) {
            factor = 1.0 - (TwoSidedT(T, DF, Side::Inside) - inside) / (density * T);
        } else {
            const double tail = TwoSidedT(T, DF, Side::Outside);
            factor = std::exp(std::log(tail / outside) * tail / (density * T));
        }
        if (!(factor > 0.0 && factor <= Largest)) // the density has run out of range
            break;
        T *= factor;
        if (std::fabs(factor - 1.0) <= 4.0 * Epsilon)
            break;
    }
    return T;
}

} // namespace

double ProbT(double T, double DF, double Mu, bool TwoTailed) {
    const double distance = std::fabs(T - Mu);
    if (std::isnan(distance) || !Positive(DF))
        return 0.0;
    if (TwoTailed)
        return Probability(TwoSidedT(distance, DF, Side::Inside));
    const double tail = 0.5 * Probability(TwoSidedT(distance, DF, Side::Outside));
    return T < Mu ? tail : 1.0 - tail;
}

double TailT(double T, double DF) {
    if (std::isnan(T) || !Positive(DF))
        return 1.0;
    return Probability(TwoSidedT(std::fabs(T), DF, Side::Outside));
}

double ProbF(double F, double DF1, double DF2) {
    if (!Positive(F) || !Positive(DF1) || !Positive(DF2))
        return 0.0;
    return Probability(SidedF(F, DF1, DF2, Side::Inside));
}

double TailF(double F, double DF1, double DF2) {
    if (!Positive(F) || !Positive(DF1) || !Positive(DF2))
        return 1.0;
    return Probability(SidedF(F, DF1, DF2, Side::Outside));
}

double GammaQ(double A, double X) {
    if (!Positive(X) || std::isnan(A))
        return 1.0;
    if (A <= 0.0 || std::isinf(X))
        return 0.0;
    if (std::isinf(A))
        return 1.0;
    return Probability(boost::math::gamma_q(A, X, Policy()));
}

double ProbNormal(double Z, bool Tail) {
    if (std::isnan(Z))
        return Tail ? 1.0 : 0.0;
    return Tail ? std::erfc(std::fabs(Z) / std::numbers::sqrt2) : 0.5 * std::erfc(-Z / std::numbers::sqrt2);
}

double InverseNormal(double P, double) {
    if (std::isnan(P))
        return 0.0;
    if (P <= 0.0 || P >= 1.0)
        return P <= 0.0 ? -Largest : Largest;
    if (P > 0.5)
        return std::numbers::sqrt2 * boost::math::erfc_inv(2.0 * (1.0 - P), Policy());
    return -std::numbers::sqrt2 * boost::math::erfc_inv(2.0 * P, Policy());
}

double InverseT(double P, double DF, int, bool) {
    if (std::isnan(P) || !Positive(DF))
        return 0.0;
    if (P <= 0.0 || P >= 1.0)
        return P <= 0.0 ? -Largest : Largest;
    if (std::isinf(DF))
        return InverseNormal(P);
    if (P == 0.5)
        return 0.0;
    if (DF < 1e-100) // next to nothing is left inside any bound
        return std::copysign(Largest, P - 0.5);
    const double outside = 2.0 * std::min(P, 1.0 - P);
    return std::copysign(TwoSidedQuantileT(1.0 - outside, outside, DF), P - 0.5);
}

double InverseChiSquare(double P, int DF) {
    if (!Positive(P) || DF <= 0)
        return 0.0;
    if (P >= 1.0)
        return Largest;
    return Finite(boost::math::quantile(boost::math::chi_squared_distribution<double, Policy>(DF), P));
}

} // namespace corvane::stats
