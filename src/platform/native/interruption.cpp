#include "platform/native/interruption.h"

#include "platform/native/vanishing_name.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <semaphore.h>
#include <system_error>

namespace corvane {
namespace {

/// Posted by the handler and by the end; a semaphore can be in a handler and takes no descriptor, of which
/// the user may have allowed few.
sem_t wake;
std::atomic<std::int64_t> firstRequest{0}; // in milliseconds; 0: none
static_assert(std::atomic<std::int64_t>::is_always_lock_free);

/// A shell and `timeout` send one wish to the program and again to its group.
constexpr std::int64_t sameRequest = 100;

std::int64_t Now() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000 + 1;
}

/// A stop source takes locks, which a handler must not; so it stores and wakes the thread that may.
extern "C" void RequestStop(int signal) {
    const int error = errno;
    const std::int64_t now = Now();
    std::int64_t first = 0;
    if (firstRequest.compare_exchange_strong(first, now)) {
        ::sem_post(&wake);
    } else if (now - first >= sameRequest) {
        UnlinkVanishingNames();
        std::signal(signal, SIG_DFL);
        std::raise(signal); // comes as soon as this handler returns
    }
    errno = error;
}

void Catch(int signal, struct sigaction& before) {
    ::sigaction(signal, nullptr, &before);
    if (before.sa_handler == SIG_IGN)
        return;
    struct sigaction action {};
    action.sa_handler = RequestStop;
    ::sigaction(signal, &action, nullptr);
}

} // namespace

Interruption::Interruption() {
    firstRequest = 0;
    ::sem_init(&wake, 0, 0);
    try {
        watch = std::thread([this] {
            while (::sem_wait(&wake) != 0 && errno == EINTR) {
            }
            if (Requested())
                source.request_stop();
        });
    } catch (const std::system_error&) {
        return; // where no thread can be had, signals end the program as usual
    }
    Catch(SIGINT, interrupt);
    Catch(SIGTERM, termination);
}

Interruption::~Interruption() {
    if (watch.joinable()) {
        ::sigaction(SIGINT, &interrupt, nullptr);
        ::sigaction(SIGTERM, &termination, nullptr);
        ::sem_post(&wake);
        watch.join();
    }
    ::sem_destroy(&wake);
}

bool Interruption::Requested() noexcept {
    return firstRequest != 0;
}

} // namespace corvane
