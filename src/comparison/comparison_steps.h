#pragma once

#include "platform/progress.h"
#include "stats/cancellation.h"

#include <cstddef>
#include <stop_token>
#include <string>
#include <utility>

namespace corvane {

/// A comparison's way through its steps: each model that is read, each whose adequacy is computed, and each
/// pair of models in each of the four tables. Where it was asked to stop, the next look throws
/// stats::Cancelled.
class ComparisonSteps {
public:
    ComparisonSteps(Progress& someProgress, std::stop_token stopToken, std::size_t models)
        : progress(someProgress), stop(std::move(stopToken)),
          count(2 * models + 4 * (models * (models - 1) / 2)) {}

    void BeginStage(const std::string& text) { progress.ShowStage(text); }
    void Look() const { stats::ThrowIfCancelled(stop); }
    void Done() {
        progress.ShowShare(static_cast<double>(++done) / static_cast<double>(count));
        Look();
    }

private:
    Progress& progress;
    std::stop_token stop;
    std::size_t done = 0, count;
};

} // namespace corvane
