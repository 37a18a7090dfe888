#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

/// Random samples that break statistics: constant, tied, constant but for rounding, exact lines, magnitudes
/// from the smallest to the largest double, up to eight pairs.
namespace corvane::stats::test {

struct DegenerateSample {
    int Round = 0;
    std::vector<double> X, Y, SDX, SDY;
};

/// Calls `check` for 4000 samples, the same in every run, until it fails; CORVANE_SAMPLES in the environment
/// asks for another number.
template<class Check>
void ForDegenerateSamples(Check&& check) {
    constexpr double largest = std::numeric_limits<double>::max();
    const char* wanted = std::getenv("CORVANE_SAMPLES");
    const int samples = wanted ? std::atoi(wanted) : 4000;
    std::mt19937_64 generator(20240502);
    std::normal_distribution<> normal;
    const double special[] = {0.0,     -0.0,   1.0,    -1.0,     0.1,     1.0 / 3, 1e300, -1e300, 1e-300,
                              -1e-300, 5e-324, 1e-308, -largest, largest, 1e9 + 1, 1e16,  1e154,  1e-162};
    const auto value = [&](int kind, double scale) {
        const double z = normal(generator);
        switch (kind) {
        case 0:
            return scale * z;
        case 1:
            return scale; // constant
        case 2:
            return scale * static_cast<double>(generator() % 3); // tied
        case 3:
            return scale * (1.0 + 1e-15 * z); // constant but for rounding
        case 4:
            return special[generator() % std::size(special)];
        case 5:
            return std::ldexp(z, static_cast<int>(generator() % 2000) - 1000);
        default:
            return scale * static_cast<double>(generator() % 2) * 1e8 + z;
        }
    };
    for (int round = 0; round < samples && !::testing::Test::HasFatalFailure(); ++round) {
        DegenerateSample sample;
        sample.Round = round;
        const std::size_t n = generator() % 9;
        const int kindX = static_cast<int>(generator() % 7), kindY = static_cast<int>(generator() % 8);
        const double scaleX = std::pow(10.0, static_cast<double>(generator() % 617) - 308.0);
        const double scaleY = std::pow(10.0, static_cast<double>(generator() % 617) - 308.0);
        const double sdScale = std::pow(10.0, static_cast<double>(generator() % 600) - 300.0);
        for (std::size_t i = 0; i < n; ++i) {
            sample.X.push_back(value(kindX, round % 2 ? scaleX : 1.0));
            const double y = kindY == 7 ? 0.1 + 0.3 * sample.X[i] : value(kindY, round % 2 ? scaleY : 1.0);
            sample.Y.push_back(std::isfinite(y) ? y : largest);
            sample.SDX.push_back(round % 3 == 0   ? 1e-30
                                 : round % 3 == 1 ? std::fabs(value(4, 1.0))
                                                  : sdScale);
            sample.SDY.push_back(round % 5 == 0   ? 1e-30
                                 : round % 5 == 1 ? std::fabs(value(4, 1.0))
                                                  : std::fabs(normal(generator)));
        }
        check(sample);
    }
}

} // namespace corvane::stats::test
