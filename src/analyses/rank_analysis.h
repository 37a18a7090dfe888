#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Rank correlations and two-sample tests of X and Y. It also writes the ranks into the dataset: the k-th row
/// that is not excluded takes the k-th pair's ranks, also where an empty X kept the row itself out of the
/// run; an excluded row gets "." in both columns. Rows after the one that takes the last rank keep what they
/// hold.
extern const SectionDefinition RankAnalysisSection;

/// Writes the ranks alone.
void FillRanks(Dataset& dataset);

} // namespace corvane
