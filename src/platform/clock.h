#pragma once

namespace corvane {

/// A moment of the user's calendar; month and day count from 1.
struct ClockTime {
    int year = 1970, month = 1, day = 1, hour = 0, minute = 0, second = 0;
};

class Clock {
public:
    virtual ~Clock() = default;

    virtual ClockTime Now() const = 0;
};

} // namespace corvane
