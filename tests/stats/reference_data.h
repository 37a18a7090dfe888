#pragma once

#include <span>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

/// The data sets and reference values of tests/data.
namespace corvane::stats::test {

struct ReferenceSet {
    std::string Name;
    std::vector<double> X, SDX, Y, SDY; ///< SDs empty where there are none
    nlohmann::json Values;
    double Spread = 0.0; ///< largest range of X and Y, the unit of absolute tolerances

    bool Has(const std::string& routine) const { return Values.contains(routine); }
};

const std::vector<ReferenceSet>& ReferenceSets();
const ReferenceSet& Reference(const std::string& name);

/// What a value is compared with: |actual - expected| <= Relative |expected| + Absolute.
struct Tolerance {
    double Relative;
    double Absolute;
};

void ExpectClose(double actual, const nlohmann::json& expected, Tolerance tolerance, const std::string& what);

/// A reference array: all elements, or the first and last three.
void ExpectClose(std::span<const double> actual, const nlohmann::json& expected, Tolerance tolerance,
                 const std::string& what);

} // namespace corvane::stats::test
