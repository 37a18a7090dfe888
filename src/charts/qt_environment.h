#pragma once

#include <string>

namespace corvane {

/// Makes Qt ready to paint, once in a process and without a display. Returns why it cannot paint, or "".
/// Numbers keep their point: the locale that Qt takes from the environment is not used for them.
std::string PrepareQt();

} // namespace corvane
