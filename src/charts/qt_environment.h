#pragma once

#include <string>

namespace corvane {

/// Makes Qt ready to paint, once in a process and without a display: where no application of Qt runs yet, the
/// picture is painted offscreen, whatever the environment says. Returns why it cannot paint, or ""; but Qt
/// itself ends the process where its platform cannot be loaded or descriptors or memory run out.
/// Numbers keep their point: the locale that Qt takes from the environment is not used for them.
std::string PrepareQt();

} // namespace corvane
