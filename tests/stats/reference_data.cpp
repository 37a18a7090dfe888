#include "reference_data.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

namespace corvane::stats::test {

namespace {

ReferenceSet Load(const std::filesystem::path& path, const nlohmann::json& values) {
    ReferenceSet set;
    set.Name = path.stem().string();
    set.Values = values.at(set.Name);
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::stringstream fields(line);
        for (std::vector<double>* column : {&set.X, &set.SDX, &set.Y, &set.SDY}) {
            std::string field;
            if (std::getline(fields, field, ',') && !field.empty())
                column->push_back(std::strtod(field.c_str(), nullptr));
        }
    }
    for (const auto& column : {set.X, set.Y}) {
        const auto [low, high] = std::minmax_element(column.begin(), column.end());
        set.Spread = std::max(set.Spread, *high - *low);
    }
    return set;
}

} // namespace

const std::vector<ReferenceSet>& ReferenceSets() {
    static const std::vector<ReferenceSet> sets = [] {
        const std::filesystem::path folder = CORVANE_TEST_DATA;
        const nlohmann::json values = nlohmann::json::parse(std::ifstream(folder / "values.json"));
        std::vector<ReferenceSet> result;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "datasets"))
            result.push_back(Load(entry.path(), values));
        return result;
    }();
    return sets;
}

const ReferenceSet& Reference(const std::string& name) {
    for (const ReferenceSet& set : ReferenceSets())
        if (set.Name == name)
            return set;
    throw std::runtime_error("no reference set " + name);
}

void ExpectClose(double actual, const nlohmann::json& expected, Tolerance tolerance,
                 const std::string& what) {
    const double value = expected.get<double>();
    const double bound = tolerance.Relative * std::fabs(value) + tolerance.Absolute;
    EXPECT_LE(std::fabs(actual - value), bound) << what << ": " << actual << " for " << value;
}

void ExpectClose(std::span<const double> actual, const nlohmann::json& expected, Tolerance tolerance,
                 const std::string& what) {
    if (expected.is_array()) {
        ASSERT_EQ(actual.size(), expected.size()) << what;
        for (std::size_t i = 0; i < actual.size(); ++i)
            ExpectClose(actual[i], expected[i], tolerance, what + "[" + std::to_string(i) + "]");
        return;
    }
    const std::size_t count = expected.at("first").size();
    ExpectClose(actual.first(count), expected.at("first"), tolerance, what + ".first");
    ExpectClose(actual.last(count), expected.at("last"), tolerance, what + ".last");
}

} // namespace corvane::stats::test
