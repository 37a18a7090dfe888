#pragma once

#include "platform/progress.h"

#include <chrono>
#include <cstddef>
#include <stop_token>
#include <string>

namespace corvane {

/// What is fetched, and what it may cost.
struct HttpRequest {
    std::string address;                ///< "https://..." or "http://..."
    std::chrono::milliseconds limit{};  ///< For the whole of it; 0: none.
    std::size_t mostBytes = 16U << 20U; ///< A longer answer is a failure.
};

struct HttpAnswer {
    int status = 0;         ///< As 200 or 404; 0: there was no answer.
    std::string body{};     ///< As the server sent it.
    std::string reason{};   ///< Why there was no whole answer, in words for the user, or "".
    bool cancelled = false; ///< It was asked to stop; nothing else is in the answer.

    bool Done() const { return status >= 200 && status < 300 && reason.empty() && !cancelled; }
};

/// The network, as far as this program reads it.
class Http {
public:
    virtual ~Http() = default;

    /// Fetches and waits for the end, the limit or the stop. Shares are told where the length is known.
    virtual HttpAnswer Get(const HttpRequest& request, Progress& progress, const std::stop_token& stop) = 0;
};

} // namespace corvane
