#include "platform/native/system_clock.h"

#include <ctime>

namespace corvane {

ClockTime SystemClock::Now() const {
    const std::time_t moment = fixed ? static_cast<std::time_t>(*fixed) : std::time(nullptr);
    std::tm parts{};
    if (fixed)
        ::gmtime_r(&moment, &parts);
    else
        ::localtime_r(&moment, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

} // namespace corvane
