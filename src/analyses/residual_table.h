#pragma once

#include "run/run_state.h"
#include "stats/residual_limits.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The listing of the residuals: the columns that the user chose, a row a pair.
struct ResidualTable {
    std::string header;              ///< Of the report.
    std::string fileHeader;          ///< Of the residue file, which names four columns otherwise.
    std::vector<std::string> titles; ///< Of the report's columns, one by one.
    Listing rows;

    /// Of the rules around the listing, that of the header. A column with stars is one wider than its header,
    /// so the rows are longer.
    std::size_t RuleLength() const { return header.size(); }

    /// How many values of a column pass a test, and how many have a star; 0 for a column that is not shown.
    double Count(std::string_view name, const std::function<bool(double)>& test) const;
    double Starred(std::string_view name) const;
};

/// Stars are strictly outside the limits of the session and of influence.
ResidualTable ListResiduals(const RunState& run, const stats::InfluenceLimits& limits);

} // namespace corvane
