#pragma once

#include "report/quantity.h"

namespace corvane {

// The parts of the quantity table, by subject, in the order of the report.
std::span<const Quantity> RegressionQuantities();
std::span<const Quantity> LineFamilyQuantities();
std::span<const Quantity> SampleQuantities();
std::span<const Quantity> ErrorQuantities();
std::span<const Quantity> ConcordanceQuantities();
std::span<const Quantity> RankQuantities();
std::span<const Quantity> BalanceQuantities();
std::span<const Quantity> MsepQuantities();
std::span<const Quantity> DifferenceQuantities();
std::span<const Quantity> DeviationQuantities();
std::span<const Quantity> ResidualQuantities();
std::span<const Quantity> ComparisonQuantities();

} // namespace corvane
