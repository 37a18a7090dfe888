#pragma once

#include "run/run_state.h"

namespace corvane {

/// Section "BALANCE ANALYSIS": whether the pairs are over- and underpredicted evenly below and above the mean
/// of X, and of Y; both tables tested against equal shares and for association.
void WriteBalance(RunState& run);

/// Section "ORTHOGONAL BALANCE": the same about the lines Y = X and Y = a + b X and the lines at right angles
/// to them through the means, tested for association. Takes the place of the tables of Balance analysis.
void WriteOrthogonalBalance(RunState& run);

} // namespace corvane
