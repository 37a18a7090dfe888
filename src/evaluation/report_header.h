#pragma once

#include "platform/clock.h"
#include "report/report.h"
#include "run/run_state.h"

#include <string>
#include <string_view>

namespace corvane {

/// The report's first line: version, dataset name in brackets, date and time. A name shorter than 78
/// characters is centred by (80 - length) / 2 blanks on each side, a longer one is cut to its last 73; no
/// name gives "[UNTITLED]".
std::string HeaderLine(std::string_view fileName, const ClockTime& time);

/// A moment as headers show it, "09-Mar-2026 07:05:04".
std::string TimeText(const ClockTime& time);

/// The header line, dots under it, an empty line; then the method lines and one empty line.
void WriteReportHeader(RunState& run, const ClockTime& time);

} // namespace corvane
