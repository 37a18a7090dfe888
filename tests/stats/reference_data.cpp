#include "reference_data.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

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

void ExpectClose(double actual, double expected, Tolerance tolerance, const std::string& what) {
    const double bound = tolerance.Relative * std::fabs(expected) + tolerance.Absolute;
    EXPECT_LE(std::fabs(actual - expected), bound) << what << ": " << actual << " for " << expected;
}

void ExpectClose(const nlohmann::json& expected, Tolerance tolerance, std::initializer_list<Given> given) {
    for (const auto& [key, actual] : given) {
        const auto compare = [&](std::span<const double> values, const std::vector<double>& references) {
            ASSERT_EQ(values.size(), references.size()) << key;
            for (std::size_t i = 0; i < values.size(); ++i)
                ExpectClose(values[i], references[i], tolerance, key);
        };
        const nlohmann::json& value = expected.at(key);
        if (value.is_number())
            compare(actual, {value.get<double>()});
        else if (value.is_array())
            compare(actual, value);
        else {
            compare(actual.first(value.at("first").size()), value.at("first"));
            compare(actual.last(value.at("last").size()), value.at("last"));
        }
    }
}

} // namespace corvane::stats::test
