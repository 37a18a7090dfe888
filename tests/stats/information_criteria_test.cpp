#include "stats/information_criteria.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace corvane::stats {
namespace {

using Sample = std::vector<double>;

// SSE = 401/2625 by fractions, the logarithms to 40 digits with Python's decimal.
TEST(InformationCriteria, OfALineInAnyUnit) {
    const Sample x{1, 2, 3, 4, 5, 6}, y{1.1, 2.3, 2.9, 4.2, 4.8, 6.1};
    const auto criteria = LineInformationCriteria(x, y);
    ASSERT_TRUE(criteria);
    EXPECT_NEAR(criteria->AIC, 1.0034577583675377, 1e-11);
    EXPECT_NEAR(criteria->AICc - criteria->AIC, 24.0 / 2, 1e-12);
    EXPECT_NEAR(criteria->AICcPrime, -4.0238053016832596, 1e-11);
    for (const double unit : {1e200, 1e-200}) { // their squares are out of a double's range
        Sample scaled;
        for (const double value : y)
            scaled.push_back(value * unit);
        EXPECT_NEAR(LineInformationCriteria(x, scaled)->AIC, criteria->AIC + 12 * std::log(unit), 1e-9);
    }
}

TEST(InformationCriteria, OfTooFewPairsAndOfExactLines) {
    EXPECT_EQ(LineInformationCriteria(Sample{1, 2, 3}, Sample{1, 2, 4})->AICc, 0);
    EXPECT_FALSE(LineInformationCriteria(Sample{1, 2, 3, 4}, Sample{1, 2, 4, 3}));
    EXPECT_EQ(LineInformationCriteria(Sample{1, 2, 3, 4, 5}, Sample{3, 5, 7, 9, 11})->AIC, 0);
}

TEST(InformationCriteria, WeightAndRatioEndWhereAnExponentialDoes) {
    EXPECT_NEAR(AkaikeWeight(3), 0.18242552380635635, 1e-15);  // exp(-1.5)/(1 + exp(-1.5))
    EXPECT_NEAR(*EvidenceRatio(3), 4.4816890703380648, 1e-13); // exp(1.5)
    EXPECT_NEAR(*EvidenceRatio(-3), 4.4816890703380648, 1e-13);
    EXPECT_EQ(*EvidenceRatio(0), 1);
    EXPECT_EQ(AkaikeWeight(2000), 0);
    EXPECT_EQ(AkaikeWeight(-2000), 1);
    EXPECT_FALSE(EvidenceRatio(2000) || EvidenceRatio(-2000));
}

} // namespace
} // namespace corvane::stats
