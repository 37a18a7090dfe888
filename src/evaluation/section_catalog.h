#pragma once

#include "run/section_definition.h"

#include <span>

namespace corvane {

/// The sections in the order of the report, a nested one after that which runs it, then the plots.
std::span<const SectionDefinition* const> SectionCatalog();

} // namespace corvane
