#pragma once

#include "platform/native/system_clock.h"

#include <cstdint>
#include <optional>

namespace corvane {

inline constexpr const char* WrongEpochMessage = "SOURCE_DATE_EPOCH is no count of seconds since 1970";

/// SOURCE_DATE_EPOCH where that is set and a count of seconds since 1970 up to the year 9999.
std::optional<std::int64_t> SourceDate();

/// The clock of the report's header: it shows SOURCE_DATE_EPOCH where that is set. Nothing where that is
/// no count of seconds since 1970 up to the year 9999.
std::optional<SystemClock> ReportClock();

} // namespace corvane
