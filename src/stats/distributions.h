#pragma once

/// Probabilities and quantiles of the normal, Student's t, F and chi-square laws.
///
/// No function throws and none returns NaN or infinity. A NaN argument, or degrees of freedom that are not
/// positive, gives the value of "no evidence": 0 for a cumulative probability, 1 for a tail, 0 for a
/// quantile. An infinite argument counts as the largest double, and degrees of freedom beyond 1e15 lose
/// digits; a quantile whose limit is infinite is the largest finite
/// double with its sign. Tails are computed directly and not as 1 - P, so that 1e-300 keeps its digits.
namespace corvane::stats {

/// P(|t| <= |T - Mu|) of Student's t with DF degrees of freedom (real); 0 at T = Mu, rising to 1.
/// With TwoTailed = false P(t <= T - Mu), the cumulative distribution function.
double ProbT(double T, double DF, double Mu = 0.0, bool TwoTailed = true);

/// P(|t| > |T|), the two-sided P-value: the complement of ProbT(T, DF).
double TailT(double T, double DF);

/// P(f <= F) of Fisher's F with DF1 (numerator) and DF2 (denominator) degrees of freedom; 0 for F <= 0.
double ProbF(double F, double DF1, double DF2);

/// P(f > F): the complement of ProbF; 1 for F <= 0.
double TailF(double F, double DF1, double DF2);

/// Upper regularised incomplete gamma function Q(A, X) = integral from X of t^(A-1) exp(-t) dt, over
/// Gamma(A). 1 for X <= 0; for A <= 0 and X > 0 its limit 0.
double GammaQ(double A, double X);

/// Two-sided significance 2 (1 - Phi(|Z|)) of a standard normal Z: 1 at Z = 0.
/// With Tail = false Phi(Z), the cumulative distribution function.
double ProbNormal(double Z, bool Tail = true);

/// Standard normal quantile of P; the second argument is unused.
double InverseNormal(double P, double = 0.0);

/// Quantile of Student's t: the T with P(t <= T) = P, negative for P < 0.5. The two flags are unused.
double InverseT(double P, double DF, int = 1, bool = false);

/// Quantile of chi-square with DF degrees of freedom. P <= 0 gives 0, the lower end of the law.
double InverseChiSquare(double P, int DF);

} // namespace corvane::stats
