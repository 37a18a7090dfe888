#pragma once

#include "core/run_state.h"

namespace corvane {

/// Section "REFERENCES": the literature that the report cites.
void WriteReferences(RunState& run);

} // namespace corvane
