#pragma once

#include "platform/random.h"

namespace corvane {

/// Seeds from the clock, to the nanosecond: two runs differ.
class ClockSeeds : public Random {
public:
    std::uint64_t Seed() override;
};

/// The user's own seed, for runs that can be repeated.
class FixedSeed : public Random {
public:
    explicit FixedSeed(std::uint64_t userSeed) : seed(userSeed) {}
    std::uint64_t Seed() override { return seed; }

private:
    std::uint64_t seed;
};

} // namespace corvane
