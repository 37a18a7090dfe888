#pragma once

#include <QString>

namespace corvane {

/// What a report of a fault should hold about the program and the machine, a line each; nothing of the
/// user's.
QString SystemInformation();

} // namespace corvane
