#include "stats/msep_bootstrap.h"

#include "stats/cancellation.h"

#include <gtest/gtest.h>
#include <vector>

namespace corvane::stats::test {
namespace {

TEST(MsepBootstrap, AWholeSampleAndNone) {
    // Squares 1, 4, 9: MSEP 14/3, its variance sum (D^2 - MSEP)^2 / (N (N - 1)) = 98/3 / 6.
    const std::vector<double> differences{1, -2, 3};
    const MsepSeries whole = BootstrapMSEP(5, 100, differences, 1),
                     none = BootstrapMSEP(5, -1, differences, 1);
    EXPECT_NEAR(whole.MSEP.Mean, 14.0 / 3, 1e-14);
    EXPECT_NEAR(whole.VarMSEP.Mean, 98.0 / 18, 1e-14);
    EXPECT_EQ(whole.MSEP.Variance, 0);
    EXPECT_EQ(none.MSEP.Mean, 0);
}

TEST(MsepBootstrap, AStopIsNoticedWithinTwoToTheSixteenDraws) {
    for (const std::size_t size : {1u, 1000u, 150000u}) { // looks between, after and within sub-samples
        const std::vector<double> differences(size, 1);
        const auto subSamples = static_cast<std::int32_t>(500000 / size);
        const double draws = static_cast<double>(subSamples) * static_cast<double>(size);
        std::vector<double> shares{0};
        BootstrapMSEP(subSamples, 20, differences, 7, {}, [&](double share) { shares.push_back(share); });
        ASSERT_GE(shares.size(), 7u);
        shares.push_back(1);
        for (std::size_t i = 1; i < shares.size(); ++i)
            EXPECT_LE((shares[i] - shares[i - 1]) * draws, ElementsBetweenLooks + 0.5);

        std::stop_source source;
        int heard = 0;
        EXPECT_THROW(BootstrapMSEP(subSamples, 20, differences, 7, source.get_token(),
                                   [&](double) {
                                       ++heard;
                                       source.request_stop();
                                   }),
                     Cancelled);
        EXPECT_EQ(heard, 1);
    }
}

} // namespace
} // namespace corvane::stats::test
