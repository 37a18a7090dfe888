#include "generator/copula_pairs.h"

#include "stats/distributions.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace corvane {
namespace {

/// ln(q + (1 - q) exp(-s)), s >= 0.
double LogMixture(double q, double s) {
    return std::log1p((1 - q) * std::expm1(-s));
}

/// The w with dC(u, w)/du = v. The closed forms overflow for strong dependence and cancel for weak; these
/// are the same functions on the scale of logarithms, where nothing does either.
double FrankPartner(double u, double v, double t) {
    return u + (LogMixture(v, t * u) - LogMixture(1 - v, t * (1 - u))) / t;
}

/// w = (1 + u^-t (v^(-t / (1 + t)) - 1))^(-1/t)
double ClaytonPartner(double u, double v, double t) {
    const double power = -t * std::log(u) + std::log(std::expm1(-t / (1 + t) * std::log(v)));
    return std::exp(-(std::max(power, 0.0) + std::log1p(std::exp(-std::abs(power)))) / t);
}

double Partner(CopulaFamily family, double u, double v, double t) {
    if (t == 0)
        return v;
    const double w = family == CopulaFamily::Frank ? FrankPartner(u, v, t) : ClaytonPartner(u, v, t);
    return std::clamp(w, SmallestUniform, 1 - SmallestUniform);
}

/// E[z(U) z(W)] with u = Phi(x), v = Phi(y), by the trapezoidal rule over the plane, which converges faster
/// than any power of the step for integrands as smooth as this one (Trefethen and Weideman, 2014, SIAM Review
/// 56, 385-458).
class NormalScores {
public:
    NormalScores() {
        for (int i = -nodesAside; i <= nodesAside; ++i) {
            const double x = i * step;
            nodes.push_back({x, stats::ProbNormal(x, false),
                             step * std::exp(-0.5 * x * x) / std::sqrt(2 * std::numbers::pi)});
        }
    }

    double Correlation(CopulaFamily family, double t) const {
        double sum = 0;
        for (const Node& outer : nodes) {
            double mean = 0;
            for (const Node& inner : nodes)
                mean += inner.weight *
                        stats::InverseNormal(Partner(family, outer.probability, inner.probability, t));
            sum += outer.weight * outer.x * mean;
        }
        return sum;
    }

private:
    static constexpr double step = 0.125;
    static constexpr int nodesAside = 64; ///< Up to |x| = 8, with 1e-15 beyond.
    struct Node {
        double x, probability, weight;
    };
    std::vector<Node> nodes;
};

} // namespace

double CopulaParameter(CopulaFamily family, double r) {
    if (!(r > 0))
        return 0;
    constexpr double strongest = 0x1p30;
    const NormalScores scores;
    double low = 0, high = 1;
    while (high < strongest && scores.Correlation(family, high) < r) {
        low = high;
        high *= 2;
    }
    while (high - low > 1e-10 * std::max(high, 1.0)) { // d r / d t and d r / d ln t are below 1
        const double middle = 0.5 * (low + high);
        (scores.Correlation(family, middle) < r ? low : high) = middle;
    }
    return 0.5 * (low + high);
}

void GenerateCopulaPairs(std::span<const double> U, std::span<const double> V, std::span<double> W, double r,
                         CopulaFamily family) {
    const double t = CopulaParameter(family, r);
    for (std::size_t i = 0; i < U.size(); ++i)
        W[i] = Partner(family, U[i], V[i], t);
}

} // namespace corvane
