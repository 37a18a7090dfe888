#pragma once

#include <csignal>
#include <stop_token>
#include <thread>

namespace corvane {

/// While it lives, SIGINT and SIGTERM ask for a stop instead of ending the program; another one, a tenth of a
/// second later or more, ends it at once. A signal that is ignored stays ignored. It has a thread, so that
/// nothing may fork meanwhile. At most one lives at a time.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    std::stop_token Token() const { return source.get_token(); }
    /// Whether a signal has come, also one of which the token does not tell yet.
    static bool Requested() noexcept;

private:
    std::stop_source source;
    struct sigaction interrupt {};
    struct sigaction termination {};
    std::thread watch;
};

} // namespace corvane
