#pragma once

#include "core/run_services.h"
#include "support/fakes.h"

namespace corvane::testing {

/// The services of a run, all of them fakes.
struct RunFakes {
    RecordingDialogs dialogs;
    RecordingFeedback feedback;
    FixedClock clock;
    FixedRandom random;
    MemoryFiles files;

    RunServices Services(const std::string& residueFolder = "") {
        return {dialogs, feedback, clock, random, files, residueFolder};
    }
};

} // namespace corvane::testing
