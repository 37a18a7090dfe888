#include "stats/deviation_intervals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "stats/degenerate_samples.h"
#include "stats/line_fits.h"
#include "stats/reference_data.h"

namespace corvane::stats::test {

namespace {

using Values = std::vector<double>;
using Row = std::array<double, 7>;

std::vector<Row> RowsOf(const std::vector<DeviationIntervalRow>& rows) {
    std::vector<Row> result;
    for (const DeviationIntervalRow& row : rows)
        result.push_back(
            {row.X, row.Deviation, row.Fitted, row.CILower, row.CIUpper, row.PILower, row.PIUpper});
    return result;
}

TEST(DeviationIntervals, AgreeWithTheReference) {
    OnSetsWith("DeviationIntervals", [](const ReferenceSet& set, const nlohmann::json& expected) {
        Values deviation;
        for (std::size_t i = 0; i < set.X.size(); ++i)
            deviation.push_back(set.Y[i] - set.X[i]);
        const LineFit line = FitLine(set.X, deviation);
        const std::vector<Row> rows = RowsOf(DeviationIntervals(line.a, line.b, set.X, deviation, 95));
        ASSERT_EQ(rows.size(), set.X.size());
        // a of 2e8 in offset9 is a double with spacing 3e-8.
        const double absolute = set.Name == "offset9" ? 1e-6 : 1e-13 * set.Spread;
        for (std::size_t k = 0; k < 3; ++k) {
            ExpectClose({{"row", expected["first"][k]}}, {1e-10, absolute}, {{"row", rows[k]}});
            ExpectClose({{"row", expected["last"][k]}}, {1e-10, absolute},
                        {{"row", rows[rows.size() - 3 + k]}});
        }
    });
}

TEST(DeviationIntervals, WidenWithConfidence) {
    const Values x = {3, 1, 2, 1}, deviation = {1, 5, 2, 4};
    const double largest = std::numeric_limits<double>::max();
    for (const DeviationIntervalRow& row : DeviationIntervals(6, -1.5, x, deviation, 0))
        EXPECT_EQ(row.PIUpper - row.CILower, 0.0);
    const std::vector<DeviationIntervalRow> all = DeviationIntervals(6, -1.5, x, deviation, 100);
    EXPECT_EQ(all[0].CILower, -largest);
    EXPECT_EQ(all[0].PIUpper, largest);
    EXPECT_EQ(all[0].Deviation, 5.0); // before the other of X = 1, as in the data
    // Constant x: h = 1/N; residuals -1, 1, 1, -1 and t of 2 degrees of freedom,
    // (2 p - 1) sqrt(2 / (4 p (1 - p))) in closed form.
    const double t = 0.95 * std::sqrt(2 / (4 * 0.975 * 0.025));
    const DeviationIntervalRow same =
        DeviationIntervals(3, 0, {{0.1, 0.1, 0.1, 0.1}}, {{2, 4, 4, 2}}, 95).front();
    EXPECT_NEAR(same.CIUpper, 3 + t * std::sqrt(2 * 0.25), 1e-13);
    EXPECT_NEAR(same.PILower, 3 - t * std::sqrt(2 * 1.25), 1e-13);
}

TEST(DeviationIntervals, OfDegenerateSamplesAreFinite) {
    const auto check = [](double a, double b, const Values& x, const Values& deviation, double confidence) {
        const std::vector<Row> rows = RowsOf(DeviationIntervals(a, b, x, deviation, confidence));
        ASSERT_EQ(rows.size(), std::min(x.size(), deviation.size()));
        for (const Row& row : rows) {
            for (const double value : row)
                ASSERT_TRUE(std::isfinite(value));
            ASSERT_TRUE(row[5] <= row[3] && row[3] <= row[2] && row[2] <= row[4] && row[4] <= row[6]);
        }
    };
    ForDegenerateSamples([&](const DegenerateSample& sample) {
        const LineFit line = FitLine(sample.X, sample.Y);
        const double confidence[] = {95, 50, 100, 99.999999, 0, -5, 1e300};
        check(line.a, line.b, sample.X, sample.Y, confidence[sample.Round % 7]);
    });
    const double none = std::nan(""), infinity = std::numeric_limits<double>::infinity();
    check(none, infinity, {1, none, infinity, 4, 5}, {-infinity, 2, infinity, none}, none);
    check(infinity, none, {1, 2, 3}, {infinity, 2, 5}, infinity);
}

} // namespace

} // namespace corvane::stats::test
