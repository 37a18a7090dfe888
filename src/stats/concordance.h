#pragma once

#include <cstddef>

namespace corvane::stats {

/// Two estimators of the concordance correlation, each with its standard error, its test against 0, and 95 %
/// limits: as it is, and by the inverse hyperbolic tangent ("transformed").
struct Concordance {
    double Cb = 0.0; ///< accuracy (bias correction) of rc
    double u = 0.0;  ///< location shift, in units of sqrt(Sx Sy)
    double v = 0.0;  ///< scale shift Sy / Sx

    double rc = 0.0; ///< r Cb
    double SErc = 0.0;
    double Z = 0.0;
    double P = 1.0; ///< two-sided, as all P
    double Lower = 0.0;
    double Upper = 0.0;
    double TRc = 0.0; ///< atanh rc
    double SETRc = 0.0;
    double TZ = 0.0;
    double TP = 1.0;
    double TLower = 0.0;
    double TUpper = 0.0;
    double ULower = 0.0; ///< tanh TLower
    double UUpper = 0.0; ///< tanh TUpper

    double ICC = 0.0; ///< intraclass correlation

    double Ar = 0.0; ///< accuracy of Gr
    double Gr = 0.0; ///< r Ar
    double SEGr = 0.0;
    double GZ = 0.0;
    double GP = 1.0;
    double GLower = 0.0;
    double GUpper = 0.0;
    double TGr = 0.0; ///< atanh Gr
    double SETGr = 0.0;
    double TGZ = 0.0;
    double TGP = 1.0;
    double E1 = 0.0; ///< lower limit of TGr
    double E2 = 0.0; ///< tanh E1
    double E3 = 0.0; ///< upper limit of TGr
    double E4 = 0.0; ///< tanh E3
};

/// What a concordance is computed from: sizes and no squares, which data near the ends of a double's range
/// would not have.
struct ConcordanceMoments {
    std::size_t N = 0;
    double r = 0.0;        ///< Pearson's
    double MeanDiff = 0.0; ///< mean of x - y; two rounded means have lost the digits of their difference
    double SDX = 0.0;      ///< divisor N - 1, as all three
    double SDY = 0.0;
    double SDDiff = 0.0; ///< of x - y; for ICC only
};

/// Concordance of N pairs from their moments. With S the SDs of divisor N, u = (mean y - mean x) /
/// sqrt(Sx Sy), v = Sy / Sx:
///
/// rc = r Cb, Cb = 2 / (v + 1/v + u^2): Lin (1989), Biometrics 45, 255-268; its standard error with the
/// correction of 2000 (Biometrics 56, 324-325),
///     {[(1 - r^2) Cb^2 (1 - rc^2) + 2 rc^2 Cb (1 - rc) u^2 - rc^2 Cb^2 u^4 / 2] / (N - 2)}^(1/2).
/// Gr = r Ar, Ar = (4 - r (v + 1/v)) / ((2 - r)(v + 1/v) + u^2): Liao (2003), Journal of Nonparametric
/// Statistics 15, 37-48; its standard error by the delta method over (r, ln v, u) under bivariate normality.
/// ICC = (SDX^2 + SDY^2 - SDDiff^2) / (SDX^2 + SDY^2 + MeanDiff^2 - SDDiff^2 / N), absolute agreement of
/// single measures: Nickerson (1997), Biometrics 53, 1503-1507. No result has a unit.
///
/// Perfect agreement or its opposite (|rc| = 1): standard errors 0, Z and the transformed values saturated
/// with the sign of rc, un-transformed limits rc. One SD 0: v is 0 or saturated, u saturated with the
/// sign of mean y - mean x (0 where the means are equal), all else 0 with P = 1; both SDs 0, or N < 2:
/// all 0 with P = 1. N = 2 leaves no degree of freedom: standard errors that are not 0 are next to the
/// largest double.
Concordance ConcordanceStatistics(const ConcordanceMoments& moments);

} // namespace corvane::stats
