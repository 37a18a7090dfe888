#pragma once

#include "core/dataset.h"
#include "core/session_state.h"
#include "platform/clock.h"

#include <cstdint>
#include <string>

namespace corvane {

/// Everything that a run reads: a private copy, whose cells are shared with the document until one of the two
/// writes to them.
struct Snapshot {
    Dataset dataset;
    SessionState session; ///< The dataset's name among it, and what the last run left.
    ClockTime time;       ///< For the report's header.
    std::uint64_t seed = 0;
    std::string residueFile; ///< The path that is reserved for the residue file; empty: none is written.
};

} // namespace corvane
