#pragma once

#include <cstddef>
#include <stop_token>

namespace corvane::stats {

/// Thrown by a long routine that was asked to stop. Nothing that a routine was given is changed by then.
struct Cancelled {};

/// How many elements a long routine handles at most between two looks at its stop token.
inline constexpr std::size_t ElementsBetweenLooks = std::size_t{1} << 16;

inline void ThrowIfCancelled(const std::stop_token& stop) {
    if (stop.stop_requested())
        throw Cancelled{};
}

} // namespace corvane::stats
