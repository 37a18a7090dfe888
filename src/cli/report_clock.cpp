#include "cli/report_clock.h"

#include "core/format/numbers.h"

#include <cmath>
#include <cstdlib>

namespace corvane {

std::optional<std::int64_t> SourceDate() {
    const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
    constexpr double endOfYear9999 = 253402300799.0;
    const auto seconds = ReadNumber(epoch ? epoch : "");
    if (!seconds || *seconds < 0 || *seconds > endOfYear9999 || *seconds != std::floor(*seconds))
        return std::nullopt;
    return static_cast<std::int64_t>(*seconds);
}

std::optional<SystemClock> ReportClock() {
    const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (!epoch || *epoch == '\0')
        return SystemClock();
    const auto seconds = SourceDate();
    return seconds ? std::optional<SystemClock>(*seconds) : std::nullopt;
}

} // namespace corvane
