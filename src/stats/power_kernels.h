#pragma once

#include <limits>

namespace corvane::stats {

/// Powers of a distance: (min(|z|, Cap) Unit)^Power, Power > 0.
struct PowerKernel {
    double Power = 1.5;
    double Cap = std::numeric_limits<double>::infinity();
    double Unit = 1.0;

    bool Capped() const { return Cap < std::numeric_limits<double>::infinity(); }
    double operator()(double z) const;
};

/// |z|^p less its tangent at a pivot: with t = z - Pivot, |Pivot|^p (|1 + u|^p - 1 - p u), u = t / Pivot. It
/// keeps its digits where the power itself is all offset.
struct PowerBeyondTangent {
    double Power;
    double Pivot;

    double operator()(double t) const;
    double Tangent(double t) const;
};

/// (|1 + u|^p + |1 - u|^p) / 2 - 1, exact to the last digits for small u too.
double EvenPowerExcess(double power, double u);

} // namespace corvane::stats
