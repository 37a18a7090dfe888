#pragma once

#include <cstdint>

namespace corvane {

/// Where generators of random numbers start.
class Random {
public:
    virtual ~Random() = default;

    /// A seed for one generator; a fixed source gives the same one every time.
    virtual std::uint64_t Seed() = 0;
};

} // namespace corvane
