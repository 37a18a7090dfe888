#pragma once

#include <gtest/gtest.h>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// The data sets and reference values of tests/data.
namespace corvane::stats::test {

struct ReferenceSet {
    std::string Name;
    std::vector<double> X, SDX, Y, SDY; ///< SDs empty where there are none
    nlohmann::json Values;
    double Spread = 0.0; ///< largest range of X and Y, the unit of absolute tolerances
};

const std::vector<ReferenceSet>& ReferenceSets();
const ReferenceSet& Reference(const std::string& name);

/// What a value is compared with: |actual - expected| <= Relative |expected| + Absolute.
struct Tolerance {
    double Relative;
    double Absolute;
};

/// What a routine gave for a key of the reference: a number, or an array of which the reference may have only
/// the first and last three.
struct Given {
    Given(const char* key, const double& value) : Key(key), Values(&value, 1) {}
    Given(const char* key, std::span<const double> values) : Key(key), Values(values) {}

    const char* Key;
    std::span<const double> Values;
};

void ExpectClose(const nlohmann::json& expected, Tolerance tolerance, std::initializer_list<Given> given);
void ExpectClose(double actual, double expected, Tolerance tolerance, const std::string& what);

/// Calls `body` for every set with values of the routine.
template<class Body>
void OnSetsWith(const std::string& routine, Body body) {
    int sets = 0;
    for (const ReferenceSet& set : ReferenceSets()) {
        if (!set.Values.contains(routine))
            continue;
        SCOPED_TRACE(set.Name + " " + routine);
        body(set, set.Values[routine]);
        ++sets;
    }
    EXPECT_GT(sets, 1) << routine;
}

/// Calls `body` for every X and Y with values of the routine.
template<class Body>
void OnSamplesWith(const std::string& routine, Body body) {
    int samples = 0;
    OnSetsWith(routine, [&](const ReferenceSet& set, const nlohmann::json& expected) {
        for (const auto& [column, sample] : {std::pair{"X", &set.X}, std::pair{"Y", &set.Y}}) {
            if (!expected.contains(column))
                continue;
            SCOPED_TRACE(column);
            body(set, *sample, expected[column]);
            ++samples;
        }
    });
    EXPECT_GT(samples, 30) << routine;
}

} // namespace corvane::stats::test
