#include "stats/concordance.h"

#include <algorithm>
#include <cmath>

#include "stats/distributions.h"
#include "stats/sums.h"

namespace corvane::stats {

namespace {

constexpr double Quantile975 = 1.959963984540054; // of the standard normal

/// An estimate within [-1, 1]. Its distances from both ends are carried beside it, since next to an end the
/// estimate itself has lost them.
struct Estimate {
    double Value;
    double Below; ///< 1 + Value
    double Above; ///< 1 - Value
    double SE;
    double Z; ///< Value / SE
};

struct Inference {
    double SE, Z, P, Lower, Upper;
};

Inference Infer(double value, double standardError, double z) {
    const double half = Quantile975 * standardError;
    return {standardError, z, ProbNormal(z), Finite(value - half), Finite(value + half)};
}

/// atanh x = ln((1 + x) / (1 - x)) / 2, saturated at the ends.
double Transform(const Estimate& estimate) {
    const double nearest = std::min(estimate.Below, estimate.Above);
    if (nearest <= 0.0)
        return std::copysign(Largest, estimate.Value);
    return std::copysign(0.5 * std::log1p(Finite(2.0 * std::fabs(estimate.Value) / nearest)), estimate.Value);
}

Inference InferTransformed(double transformed, const Estimate& estimate) {
    const double standardError = Ratio(estimate.SE, estimate.Below * estimate.Above);
    return Infer(transformed, standardError, Ratio(transformed, standardError));
}

/// s = v + 1/v, w = s - 2 = (v - 1)^2 / v, u^2 and 1, all divided by the larger of s and u^2, so that none
/// leaves the range of a double and w keeps its digits where v is near 1.
struct Shifts {
    double One, S, W, U;
};

Shifts ShiftsOf(double u, double SDX, double SDY) {
    const double mean = std::sqrt(SDX) * std::sqrt(SDY);
    const double rootS = Finite(std::hypot(SDX / mean, SDY / mean)), rootW = Finite((SDY - SDX) / mean);
    const double unit = std::max(rootS, std::fabs(u));
    const double one = Square(1.0 / unit), w = Square(rootW / unit);
    return {one, 2.0 * one + w, w, Square(u / unit)};
}

Estimate Lin(double r, const Shifts& shift, double rootFreedom, double& Cb) {
    const double whole = shift.S + shift.U;
    Cb = 2.0 * shift.One / whole;
    const double loss = (shift.W + shift.U) / whole; // 1 - Cb
    Estimate rc{};
    rc.Value = r * Cb;
    rc.Below = r < 0.0 ? (1.0 + r) - r * loss : 1.0 + rc.Value;
    rc.Above = r > 0.0 ? (1.0 - r) + r * loss : 1.0 - rc.Value;
    // The terms of the variance over Cb^2, arranged such that they do not cancel: t = Cb u^2.
    const double t = 2.0 * shift.U / whole, scale = 2.0 * shift.W / whole;
    const double variance = (1.0 - r) * (1.0 + r) * rc.Below * rc.Above +
                            r * r * t * (2.0 * (1.0 - r) + r * scale + t * (r - 0.5));
    const double root = Ratio(std::sqrt(std::max(0.0, variance)), rootFreedom);
    rc.SE = Cb * root;
    rc.Z = Ratio(r, root);
    return rc;
}

Estimate Liao(double r, const Shifts& shift, double rootFreedom, double& Ar) {
    const double whole = (2.0 - r) * shift.S + shift.U;
    Ar = (4.0 * shift.One - r * shift.S) / whole;
    Estimate g{};
    g.Value = r * Ar;
    const double common = 2.0 * (2.0 - r) * shift.One;
    g.Below = ((1.0 + r) * common + shift.W * (1.0 - r) * (2.0 + r) + shift.U) / whole;
    g.Above = ((1.0 - r) * common + shift.W * (2.0 - r + r * r) + shift.U) / whole;

    // Partial derivatives by r, by ln v (squared) and, times u, by u. The quadratic form in them, with
    // Var r = (1 - r^2)^2, Var ln v = 1 - r^2, Var u = s - 2 r + u^2 (1 + r^2)/4,
    // Cov(r, u) = -u r (1 - r^2)/2, is written as a sum of squares.
    const double unexplained = (1.0 - r) * (1.0 + r);
    const double byR = (4.0 * shift.One - 2.0 * r * shift.S + shift.S * g.Value) / whole;
    const double byScale =
        shift.W * (shift.W + 4.0 * shift.One) * Square((r * r + g.Value * (2.0 - r)) / whole);
    const double byLocation = -2.0 * g.Value * shift.U / whole;
    const double spread =
        4.0 * Square(g.Value) * (shift.U / whole) * ((shift.W + 2.0 * (1.0 - r) * shift.One) / whole);
    const double variance = Square(byR * unexplained - 0.5 * byLocation * r) + byScale * unexplained +
                            spread + 0.25 * Square(byLocation);
    g.SE = Ratio(std::sqrt(variance), rootFreedom);
    g.Z = Ratio(g.Value, g.SE);
    return g;
}

} // namespace

Concordance ConcordanceStatistics(const ConcordanceMoments& moments) {
    Concordance c;
    const double r = std::clamp(Finite(moments.r), -1.0, 1.0);
    const double SDX = std::max(0.0, Finite(moments.SDX)), SDY = std::max(0.0, Finite(moments.SDY));
    const double bias = 0.0 - Finite(moments.MeanDiff); // of y; no bias is a positive 0
    if (moments.N < 2 || (SDX == 0.0 && SDY == 0.0))
        return c;
    c.v = Ratio(SDY, SDX);
    if (SDX == 0.0 || SDY == 0.0) {
        c.u = Ratio(bias, 0.0);
        return c;
    }
    const double n = static_cast<double>(moments.N);
    c.u = Finite(bias / (std::sqrt(SDX) * std::sqrt(SDY)) * std::sqrt(n / (n - 1.0)));

    const Shifts shift = ShiftsOf(c.u, SDX, SDY);
    const double rootFreedom = std::sqrt(n - 2.0);
    const Estimate rc = Lin(r, shift, rootFreedom, c.Cb);
    const Inference lin = Infer(rc.Value, rc.SE, rc.Z);
    c.rc = rc.Value, c.SErc = lin.SE, c.Z = lin.Z, c.P = lin.P, c.Lower = lin.Lower, c.Upper = lin.Upper;
    c.TRc = Transform(rc);
    const Inference linT = InferTransformed(c.TRc, rc);
    c.SETRc = linT.SE, c.TZ = linT.Z, c.TP = linT.P, c.TLower = linT.Lower, c.TUpper = linT.Upper;
    c.ULower = std::tanh(c.TLower), c.UUpper = std::tanh(c.TUpper);

    // The numerator is twice the covariance, by which an r of 0 gives 0.
    const double sds[] = {SDX, SDY};
    const int exponent = ScaleExponent(sds);
    const auto in = [exponent](double value) { return std::ldexp(value, -exponent); };
    const double whole = Square(in(SDX)) + Square(in(SDY)) + Square(in(bias));
    c.ICC = Ratio(2.0 * r * in(SDX)*in(SDY), whole - Square(in(Finite(moments.SDDiff))) / n);

    const Estimate gr = Liao(r, shift, rootFreedom, c.Ar);
    const Inference liao = Infer(gr.Value, gr.SE, gr.Z);
    c.Gr = gr.Value, c.SEGr = liao.SE, c.GZ = liao.Z, c.GP = liao.P, c.GLower = liao.Lower,
    c.GUpper = liao.Upper;
    c.TGr = Transform(gr);
    const Inference liaoT = InferTransformed(c.TGr, gr);
    c.SETGr = liaoT.SE, c.TGZ = liaoT.Z, c.TGP = liaoT.P, c.E1 = liaoT.Lower, c.E3 = liaoT.Upper;
    c.E2 = std::tanh(c.E1), c.E4 = std::tanh(c.E3);
    return c;
}

} // namespace corvane::stats
