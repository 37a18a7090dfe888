#pragma once

#include <memory>
#include <vector>

namespace corvane {

/// A column of numbers that a run, its long tables and its plots have in common without a copy. It lives as
/// long as one of them.
using SharedColumn = std::shared_ptr<const std::vector<double>>;

inline SharedColumn ShareColumn(std::vector<double> values) {
    return std::make_shared<const std::vector<double>>(std::move(values));
}

} // namespace corvane
