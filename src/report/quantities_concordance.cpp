#include "report/quantity_parts.h"

namespace corvane {
namespace {

constexpr Quantity quantities[] = {
    {
        .key = "concordance.scale_shift",
        .title = "Scale shift",
        .meaning = "It is the ratio of the observations' spread to the predictions', and 1 is best.",
        .formula = "v = SD(Y)/SD(X)",
        .range = "0 or more",
        .better = Better::NearOne,
        .papers = "lin1989",
        .sameIn = "R: epiR::epi.ccc(X, Y)$s.shift",
        .remark = "Above 1 the predictions vary less than the observations.",
    },
    {
        .key = "concordance.location_shift",
        .title = "Location shift",
        .meaning = "It is the bias in units of the spread of the data, and 0 is best.",
        .formula = "u = (mean(Y) - mean(X))/√(Sx Sy), Sx and Sy the SDs of divisor N",
        .range = "any number",
        .better = Better::NearZero,
        .sign = "The model underpredicts.",
        .papers = "lin1989",
        .sameIn = "R: epiR::epi.ccc(X, Y)$l.shift",
        .remark = "A shift of exactly 0 is called overprediction.",
    },
    {
        .key = "concordance.cb",
        .title = "Bias correction",
        .meaning =
            "It says how far the line through the data is from Y = X, whatever the scatter, and 1 is best.",
        .formula = "Cb = 2/(v + 1/v + u²)",
        .range = "0 to 1",
        .better = Better::Higher,
        .papers = "lin1989",
        .others = "Accuracy, beside the precision r; bias correction factor",
        .sameIn = "R: epiR::epi.ccc(X, Y)$C.b",
        .remark = "In a comparison it is also computed for the predictions of two models, best by its size.",
    },
    {
        .key = "concordance.lin.rc",
        .title = "Concordance correlation coefficient",
        .meaning =
            "It says how closely the pairs follow the line Y = X, scatter and bias together, and 1 is best.",
        .formula = "rc = r Cb = 2 Sxy/(Sx² + Sy² + (mean(X) - mean(Y))²), moments of divisor N",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "lin1989; gromeive1991",
        .others = "CCC; Lin's coefficient; reproducibility index",
        .sameIn = "R: epiR::epi.ccc(X, Y)$rho.c$est; R: DescTools::CCC(X, Y)$rho.c$est",
        .remark = "The heading over it dates the paper 1998, the title and the references 1989.",
    },
    {
        .key = "concordance.lin.rc.se",
        .title = "Standard error of the concordance correlation",
        .meaning =
            "It is how far rc would typically vary from sample to sample, and smaller is more precise.",
        .formula = "√(((1 - r²) Cb² (1 - rc²) + 2 rc² Cb (1 - rc) u² - rc² Cb² u⁴/2)/(N - 2))",
        .range = "0 or more",
        .better = Better::Lower,
        .papers = "lin1989; lin2000",
        .remark = "It has the correction of 2000.",
    },
    {
        .key = "concordance.z",
        .title = "Z of a concordance coefficient",
        .meaning = "It is the coefficient in units of its standard error, and the farther above 0 it is the "
                   "clearer the agreement.",
        .formula = "rc/SE(rc); Gr/SE(Gr)",
        .range = "any number",
        .sign = "The coefficient is positive.",
        .papers = "lin1989; liao2003",
    },
    {
        .key = "concordance.p",
        .title = "P of a concordance coefficient",
        .meaning = "It is the probability of a coefficient at least this far from 0 if there were no "
                   "agreement, so a small value speaks for agreement.",
        .formula = "2 (1 - Φ(|Z|))",
        .range = "0 to 1",
        .papers = "lin1989; liao2003",
    },
    {
        .key = "concordance.limits",
        .title = "95% confidence limits of a concordance coefficient",
        .meaning = "It is a range that holds the true coefficient with a confidence of 95%, and a narrow one "
                   "near 1 is best.",
        .formula = "rc ± 1.959964 SE(rc); Gr ± 1.959964 SE(Gr)",
        .range = "any number",
        .papers = "lin1989; liao2003",
        .sameIn = "R, for rc: epiR::epi.ccc(X, Y, ci = \"asymptotic\")$rho.c",
        .remark = "The upper limit can exceed 1; the un-transformed limits below cannot.",
    },
    {
        .key = "concordance.transformed",
        .title = "Transformed concordance coefficient",
        .meaning = "It is the coefficient stretched so that its distribution is nearer to normal, and higher "
                   "is better.",
        .formula = "atanh(rc); atanh(Gr)",
        .range = "any number",
        .better = Better::Higher,
        .sign = "The coefficient is positive.",
        .papers = "lin1989; liao2003",
        .others = "Fisher's z-transformation; inverse hyperbolic tangent",
    },
    {
        .key = "concordance.transformed.se",
        .title = "Standard error of the transformed coefficient",
        .meaning = "It is how far the transformed coefficient would typically vary from sample to sample, "
                   "and smaller is more precise.",
        .formula = "SE(rc)/(1 - rc²); SE(Gr)/(1 - Gr²)",
        .range = "0 or more",
        .better = Better::Lower,
        .papers = "lin1989; liao2003",
    },
    {
        .key = "concordance.transformed.z",
        .title = "Z of the transformed coefficient",
        .meaning = "It is the transformed coefficient in units of its standard error, and the farther above "
                   "0 it is the clearer the agreement.",
        .formula = "transformed coefficient/its standard error",
        .range = "any number",
        .sign = "The coefficient is positive.",
        .papers = "lin1989; liao2003",
    },
    {
        .key = "concordance.transformed.p",
        .title = "P of the transformed coefficient",
        .meaning = "It is the probability of a transformed coefficient at least this far from 0 if there "
                   "were no agreement, so a small value speaks for agreement.",
        .formula = "2 (1 - Φ(|Z|))",
        .range = "0 to 1",
        .papers = "lin1989; liao2003",
    },
    {
        .key = "concordance.transformed.limits",
        .title = "95% confidence limits of the transformed coefficient",
        .meaning = "It is a range that holds the true transformed coefficient with a confidence of 95%, on "
                   "the stretched scale.",
        .formula = "transformed coefficient ± 1.959964 times its standard error",
        .range = "any number",
        .papers = "lin1989; liao2003",
    },
    {
        .key = "concordance.untransformed.limits",
        .title = "95% confidence limits, transformed back",
        .meaning = "It is the better of the two ranges that hold the true coefficient with a confidence of "
                   "95%, and a narrow one near 1 is best.",
        .formula = "tanh of the transformed limits",
        .range = "-1 to 1",
        .papers = "lin1989; liao2003",
        .sameIn = "R, for rc: epiR::epi.ccc(X, Y, ci = \"z-transform\")$rho.c",
        .remark = "It is not symmetric about the coefficient.",
    },
    {
        .key = "concordance.icc",
        .title = "Intraclass correlation coefficient",
        .meaning = "It is the share of all variance that predictions and observations have in common, and 1 "
                   "is best.",
        .formula = "(Var(X) + Var(Y) - Var(D))/(Var(X) + Var(Y) + (mean(X) - mean(Y))² - Var(D)/N)",
        .range = "up to 1, can be negative",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "nickerson1997",
        .others = "ICC(2,1) or ICC(A,1): absolute agreement of single measures",
        .sameIn = "R: psych::ICC(cbind(X, Y), lmer = FALSE)$results$ICC[2]",
        .remark = "The report labels it rc, like Lin's coefficient, to which it is close for large samples.",
    },
    {
        .key = "concordance.liao.ar",
        .title = "Liao's accuracy",
        .meaning = "It says how far the line through the data is from Y = X, by areas, and 1 is best.",
        .formula = "Ar = (4 - r (v + 1/v))/((2 - r)(v + 1/v) + u²)",
        .range = "up to 1",
        .better = Better::Higher,
        .papers = "liao2003",
        .remark = "It takes the place of Cb but, unlike Cb, depends on r.",
    },
    {
        .key = "concordance.liao.gr",
        .title = "Liao's improved concordance correlation",
        .meaning = "It says how closely the pairs follow the line Y = X, by areas rather than points, and 1 "
                   "is best.",
        .formula = "Gr = r Ar",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "liao2003",
        .others = "Improved CCC",
    },
    {
        .key = "concordance.liao.gr.se",
        .title = "Standard error of Liao's coefficient",
        .meaning =
            "It is how far Gr would typically vary from sample to sample, and smaller is more precise.",
        .formula = "delta method over r, ln v and u: Var r = (1 - r²)², Var ln v = 1 - r², Var u = v + 1/v - "
                   "2 r + u² (1 + r²)/4, Cov(r, u) = -u r (1 - r²)/2, each over N - 2",
        .range = "0 or more",
        .better = Better::Lower,
        .papers = "liao2003",
    },
    {
        .key = "generalized.squared",
        .title = "Generalized concordance, squared distance",
        .meaning =
            "It says how closely the pairs follow Y = X when errors count by their squares, and 1 is best.",
        .formula =
            "Rg = (V1 - V2)/(V1 + V3), V1 the mean over all i and j of g(x(i) - y(j)) - g(x(i) + y(j)), V2 "
            "that mean over i = j alone, V3 the mean of (g(2 x(i)) + g(2 y(i)))/2, g(z) = z²",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "king2001a; king2001b",
        .others = "GCCC",
        .sameIn = "R: epiR::epi.ccc(X, Y)$rho.c$est",
        .remark = "It is Lin's rc exactly; only its standard error and limits differ.",
    },
    {
        .key = "generalized.absolute",
        .title = "Generalized concordance, absolute distance",
        .meaning =
            "It says how closely the pairs follow Y = X when errors count by their size, and 1 is best.",
        .formula = "Rg with g(z) = |z|",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "king2001a; king2001b",
        .others = "GCCC",
    },
    {
        .key = "generalized.power",
        .title = "Generalized concordance, absolute distance to the power 1.5",
        .meaning = "It says how closely the pairs follow Y = X when errors count between their size and "
                   "their square, and 1 is best.",
        .formula = "Rg with g(z) = |z|^1.5",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "king2001a; king2001b",
        .others = "GCCC",
    },
    {
        .key = "generalized.winsorized_squared",
        .title = "Generalized concordance, Winsorized squared distance",
        .meaning = "It says how closely the pairs follow Y = X when errors count by their squares up to a "
                   "bound, and 1 is best.",
        .formula = "Rg with g(z) = min(z², c²), c = 2 √2 s, s = √(Qn(X) Qn(Y))",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "king2001a; king2001b",
        .others = "GCCC",
        .remark = "Where s is 0 the two SDs take the place of Qn.",
    },
    {
        .key = "generalized.winsorized_absolute",
        .title = "Generalized concordance, Winsorized absolute distance",
        .meaning = "It says how closely the pairs follow Y = X when errors count by their size up to a "
                   "bound, and 1 is best.",
        .formula = "Rg with g(z) = min(|z|, c), c = 2 √2 s, s = √(Qn(X) Qn(Y))",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "king2001a; king2001b",
        .others = "GCCC",
        .remark = "Where s is 0 the two SDs take the place of Qn.",
    },
    {
        .key = "generalized.winsorized_power",
        .title = "Generalized concordance, Winsorized absolute distance to the power 1.5",
        .meaning = "It says how closely the pairs follow Y = X when errors count between their size and "
                   "their square up to a bound, and 1 is best.",
        .formula = "Rg with g(z) = min(|z|, c)^1.5, c = 2 √2 s, s = √(Qn(X) Qn(Y))",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "king2001a; king2001b",
        .others = "GCCC",
        .remark = "Where s is 0 the two SDs take the place of Qn.",
    },
    {
        .key = "generalized.huber",
        .title = "Generalized concordance, Huber's function",
        .meaning = "It says how closely the pairs follow Y = X when small errors count by their squares and "
                   "large ones by their size, and 1 is best.",
        .formula = "Rg with g(z) = z²/2 up to h and h |z| - h²/2 beyond, h = 1.345 √2 s, s = √(Qn(X) Qn(Y))",
        .range = "-1 to 1",
        .better = Better::Higher,
        .sign = "Observations rise with predictions.",
        .papers = "king2001a; king2001b",
        .others = "GCCC",
        .remark = "Where s is 0 the two SDs take the place of Qn.",
    },
    {
        .key = "generalized.se",
        .title = "Standard error of a generalized concordance",
        .meaning =
            "It is how far Rg would typically vary from sample to sample, and smaller is more precise.",
        .formula = "√(Σ I²/(N (N - 1))), I the pair's influence on Rg",
        .range = "0 or more",
        .better = Better::Lower,
        .papers = "king2001a; king2001b",
        .remark =
            "It comes from the pairs' influences and so assumes no distribution, unlike that of Lin's rc.",
    },
    {
        .key = "generalized.limits",
        .title = "95% confidence limits of a generalized concordance",
        .meaning =
            "It is a range that holds the true Rg with a confidence of 95%, and a narrow one near 1 is best.",
        .formula = "tanh(atanh(Rg) ± 1.959964 SE/(1 - Rg²))",
        .range = "-1 to 1",
        .papers = "king2001a; king2001b",
    },
};

} // namespace

std::span<const Quantity> ConcordanceQuantities() {
    return quantities;
}

} // namespace corvane
