#pragma once

#include "run/run_state.h"

#include <string_view>

namespace corvane {

/// The entry of the list that begins so. None is a programming error: std::logic_error.
const char* FindReference(std::string_view beginning);

/// Section "REFERENCES": the literature that the report cites.
void WriteReferences(RunState& run);

} // namespace corvane
