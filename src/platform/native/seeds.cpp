#include "platform/native/seeds.h"

#include <chrono>

namespace corvane {

std::uint64_t ClockSeeds::Seed() {
    return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

} // namespace corvane
