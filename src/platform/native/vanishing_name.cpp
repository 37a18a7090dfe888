#include "platform/native/vanishing_name.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <unistd.h>
#include <utility>

namespace corvane {
namespace {

enum State : int { Free, Taken, Noted };

/// Fixed memory, since a handler may neither allocate nor wait for a lock.
struct Slot {
    std::atomic<int> state{Free};
    std::array<char, 4096> path{}; // the longest path that the system takes
};

std::array<Slot, 8> slots;
static_assert(std::atomic<int>::is_always_lock_free);

constexpr int noSlot = -1;

/// A name for which there is no room still goes with its object, only not with a signal.
int Note(const std::string& path) {
    if (path.size() >= slots.front().path.size())
        return noSlot;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        int expected = Free;
        if (!slots[i].state.compare_exchange_strong(expected, Taken))
            continue;
        std::copy_n(path.c_str(), path.size() + 1, slots[i].path.begin());
        slots[i].state = Noted;
        return static_cast<int>(i);
    }
    return noSlot;
}

extern "C" void UnlinkAndEnd(int signal) {
    UnlinkVanishingNames();
    // The handler is already reset; the signal comes again as soon as this one returns.
    std::raise(signal);
}

} // namespace

VanishingName::VanishingName(std::string path) : name(std::move(path)), slot(Note(name)) {}

VanishingName::~VanishingName() {
    const int error = errno;
    ::unlink(name.c_str());
    errno = error;
    if (slot != noSlot)
        slots[static_cast<std::size_t>(slot)].state = Free;
}

void UnlinkVanishingNames() noexcept {
    for (const Slot& slot : slots)
        if (slot.state == Noted)
            ::unlink(slot.path.data());
}

void UnlinkVanishingNamesOnSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL)
            continue;
        action.sa_handler = UnlinkAndEnd;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace corvane
