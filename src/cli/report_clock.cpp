#include "cli/report_clock.h"

#include "core/format/numbers.h"

#include <cmath>
#include <cstdlib>

namespace corvane {

std::optional<SystemClock> ReportClock() {
    const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (!epoch || *epoch == '\0')
        return SystemClock();
    constexpr double endOfYear9999 = 253402300799.0;
    const auto seconds = ReadNumber(epoch);
    if (!seconds || *seconds < 0 || *seconds > endOfYear9999 || *seconds != std::floor(*seconds))
        return std::nullopt;
    return SystemClock(static_cast<std::int64_t>(*seconds));
}

} // namespace corvane
