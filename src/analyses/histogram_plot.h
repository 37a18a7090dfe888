#pragma once

#include "run/section_definition.h"

namespace corvane {

/// The histograms that the options choose, as charts without text.
extern const SectionDefinition HistogramPlot;

} // namespace corvane
