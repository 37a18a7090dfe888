#pragma once

#include "cli/exit_codes.h"
#include "generator/pair_generator.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

/// What `corvane generate` was asked for.
struct GenerateRequest {
    std::string method;                ///< "frank", "clayton" or "harlow".
    PairRequest pairs;                 ///< Its method follows from the word.
    std::optional<std::uint64_t> seed; ///< Without one the clock gives it.
    std::string outputFile;
    bool force = false; ///< Replaces a file that exists.
};

/// Writes a dataset of random pairs, with the options of a fresh start.
ExitCode RunGenerate(const GenerateRequest& request);

} // namespace corvane
