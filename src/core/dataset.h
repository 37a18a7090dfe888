#pragma once

#include "core/analysis_options.h"
#include "core/data_matrix.h"

#include <string>

namespace corvane {

/// What a dataset file holds: the cells, the options and the notes (UTF-8, line ends CR LF).
struct Dataset {
    DataMatrix cells;
    AnalysisOptions options;
    std::string notes;
};

} // namespace corvane
