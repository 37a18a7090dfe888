#pragma once

#include "run/section_definition.h"

namespace corvane {

/// Whether the pairs are over- and underpredicted evenly below and above the mean of X, and of Y; both tables
/// tested against equal shares and for association.
extern const SectionDefinition BalanceSection;

/// The same about the lines Y = X and Y = a + b X and the lines at right angles to them through the means,
/// tested for association. Takes the place of the tables of Balance analysis.
extern const SectionDefinition OrthogonalBalanceSection;

} // namespace corvane
