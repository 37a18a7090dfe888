#pragma once

#include "report/report.h"

#include <span>
#include <stop_token>
#include <string>

namespace corvane {

/// The places of a NormalityTest; they go into the frame of every section that prints one.
inline constexpr Place NormalityPlaces[] = {
    {"*D", "normality.kolmogorov_smirnov.d", "Kolmogorov-Smirnov's D statistic : "},
    {"*V", "normality.kuiper.v", "Kuiper's V statistic             : "},
    {"*W2", "normality.cramer_von_mises.w2", "Cramér-von Mises's W2 statistic  : "},
    {"*P_W2", "normality.cramer_von_mises.p", " (P = ", 6, 4, Look::Probability},
    {"*U2", "normality.watson.u2", "Watson's U2 statistic            : "},
    {"*P_U2", "normality.watson.p", " (P = ", 6, 4, Look::Probability},
    {"*A2", "normality.anderson_darling.a2", "Anderson-Darling's A2 statistic  : "},
    {"*P_A2", "normality.anderson_darling.p", " (P = ", 6, 4, Look::Probability},
    {"*W", "normality.shapiro_wilk.w", "Shapiro-Wilk's W statistic       : "},
    {"*P_W", "normality.shapiro_wilk.p", " (P = ", 6, 4, Look::Probability},
};

/// Appends a sample's five statistics of the empirical distribution function and its Shapiro-Wilk W. The last
/// line is open: the caller ends it, or the next section's frame does. The prefix, with its dot, keeps the
/// machine names of several samples of one section apart.
void NormalityTest(ReportSection& section, std::span<const double> sample, const std::string& prefix,
                   const std::stop_token& stop);

} // namespace corvane
