#pragma once

#include "analyses/residual_limits.h"
#include "run/run_state.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

/// The listing of the residuals: the columns that the user chose, a row a pair.
struct ResidualTable {
    std::string header;     ///< Of the report.
    std::string fileHeader; ///< Of the residue file, which names four columns otherwise.
    Listing rows;

    /// As long as the header. A column with stars is one wider than its header, so the rows are longer.
    std::string Rule() const { return std::string(header.size(), '-'); }

    /// How many values of a column pass a test, and how many have a star; 0 for a column that is not shown.
    double Count(std::string_view name, const std::function<bool(double)>& test) const;
    double Starred(std::string_view name) const;
};

/// The listing's places, for the sections that hold it.
std::span<const Place> ResidualPlaces();

/// Stars are strictly outside the limits of the session and of influence.
ResidualTable ListResiduals(const RunState& run, const InfluenceLimits& limits);

} // namespace corvane
