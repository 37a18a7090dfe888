#pragma once

#include "core/dataset.h"
#include "core/session_state.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Sets an option from "KEY=VALUE" as typing it into its control would. The key may be that of any option, in
/// any case; the value is all that follows the first "=". The result is empty, or says what is wrong.
std::optional<std::string> AssignOption(Dataset& dataset, SessionState& session, std::string_view assignment);

} // namespace corvane
