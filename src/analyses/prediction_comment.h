#pragma once

#include "run/run_state.h"

namespace corvane {

/// What the comments say of the sign of Y - X. No bias at all counts as overprediction.
inline const char* PredictionComment(const RunState& run, double bias) {
    if (!run.Comments())
        return "";
    return bias > 0 ? " !! Model underprediction !!" : " !! Model overprediction !!";
}

} // namespace corvane
