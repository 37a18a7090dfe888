#pragma once

#include "core/analysis_options.h"
#include "platform/settings.h"

namespace corvane {

/// Takes the user's stored preferences into the options: seven tick boxes, each only where it has a value
/// that one can hold. Returns why they could not be read, or "".
std::string ReadUserSettings(AnalysisOptions& options, Settings& settings);

/// Stores the same boxes, as the main window does when it closes.
FileResult WriteUserSettings(const AnalysisOptions& options, Settings& settings);

} // namespace corvane
