#pragma once

#include "run/section_definition.h"

namespace corvane {

/// MSEP with its variance, its root also in per cent of both means, and two decompositions. An MSEP of 0 has
/// no more than its own line.
extern const SectionDefinition MsepSection;

} // namespace corvane
