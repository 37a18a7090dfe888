#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <optional>

namespace corvane {

/// The system's clock in the user's time zone; or one that stays at a fixed moment, shown in UTC, so that a
/// report can be made again byte for byte.
class SystemClock : public Clock {
public:
    SystemClock() = default;
    /// Stands still at a count of seconds since 1970-01-01 00:00:00 UTC.
    explicit SystemClock(std::int64_t secondsSinceEpoch) : fixed(secondsSinceEpoch) {}

    ClockTime Now() const override;

private:
    std::optional<std::int64_t> fixed;
};

} // namespace corvane
