#pragma once

#include "run/section_definition.h"

namespace corvane {

/// How the pairs fall around a whole number, by their ranks and by their values, each if its threshold's text
/// is not empty. It counts the rows of the dataset that have something in Rank X, so that without a rank
/// analysis both tables are empty and an excluded row counts as well. The table by values has no title of its
/// own. Where a cell or a threshold cannot be read the run warns.
extern const SectionDefinition ThresholdTableSection;

} // namespace corvane
