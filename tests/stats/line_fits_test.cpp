#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "stats/line_fits.h"

namespace corvane::stats::test {

namespace {

struct Sample {
    std::vector<double> X, Y, SDX, SDY;
};

enum class Errors { Alike, Decades, OneHugeX, OneTinyY };

Sample Random(Errors errors, double slope, double noise, std::size_t n, std::mt19937_64& generator) {
    std::normal_distribution<> normal;
    std::uniform_real_distribution<> uniform(0.5, 1.5), decade(-4, 4);
    Sample sample;
    for (std::size_t i = 0; i < n; ++i) {
        const double x = normal(generator);
        const bool wide = errors == Errors::Decades;
        sample.X.push_back(x);
        sample.Y.push_back(1 + slope * x + noise * (1 + std::fabs(slope)) * normal(generator));
        sample.SDX.push_back(wide ? std::pow(10, decade(generator)) : uniform(generator));
        sample.SDY.push_back(wide ? std::pow(10, decade(generator)) : uniform(generator));
    }
    if (errors == Errors::OneHugeX)
        sample.SDX[0] = 1e6;
    if (errors == Errors::OneTinyY)
        sample.SDY[0] = 1e-6;
    return sample;
}

/// Chi2 of the best line of direction (c, s), slope s/c.
long double Chi2At(const Sample& sample, long double c, long double s) {
    std::vector<long double> weight;
    long double sum = 0, meanX = 0, meanY = 0, chi2 = 0;
    for (std::size_t i = 0; i < sample.X.size(); ++i) {
        const long double sdx = sample.SDX[i], sdy = sample.SDY[i];
        weight.push_back(1 / (c * c * sdy * sdy + s * s * sdx * sdx));
        sum += weight[i];
        meanX += weight[i] * sample.X[i];
        meanY += weight[i] * sample.Y[i];
    }
    for (std::size_t i = 0; i < sample.X.size(); ++i) {
        const long double distance = c * (sample.Y[i] - meanY / sum) - s * (sample.X[i] - meanX / sum);
        chi2 += weight[i] * distance * distance;
    }
    return chi2;
}

TEST(FitLineXYErrors, FindsTheGlobalMinimum) {
    std::mt19937_64 generator(5);
    std::normal_distribution<> normal;
    for (int round = 0; round < 400; ++round) {
        const Errors errors = static_cast<Errors>(round % 4);
        const double slope = normal(generator) * std::pow(10, round % 9 - 4),
                     noise = std::pow(10, -(round % 5));
        Sample sample = Random(errors, slope, noise, 3 + generator() % 12, generator);
        if (errors == Errors::Decades) // no relation at all: Chi2 has several minima, often
            for (double& y : sample.Y)
                y = normal(generator);
        const LineFit fit = FitLineXYErrors(sample.X, sample.Y, sample.SDX, sample.SDY);
        const long double own = Chi2At(sample, 1, fit.b);
        EXPECT_NEAR(fit.Chi2, static_cast<double>(own), 1e-9 * fit.Chi2) << round;
        for (int k = -500; k <= 500; ++k) { // slopes of 1e-10 to 1e10
            const long double b = std::pow(10.0L, k / 50.0L);
            const long double lowest = std::min(Chi2At(sample, 1, b), Chi2At(sample, 1, -b));
            ASSERT_GE(lowest, own * (1 - 1e-12L)) << "round " << round << " slope " << static_cast<double>(b);
        }
    }
}

TEST(FitLineXYErrors, TurnsWithTheAxes) {
    std::mt19937_64 generator(8);
    for (Errors errors : {Errors::Alike, Errors::Decades, Errors::OneHugeX, Errors::OneTinyY})
        for (double slope : {0.01, -2.0, 50.0}) {
            Sample s = Random(errors, slope, 1e-3, 15, generator);
            const LineFit fit = FitLineXYErrors(s.X, s.Y, s.SDX, s.SDY);
            const LineFit swapped = FitLineXYErrors(s.Y, s.X, s.SDY, s.SDX);
            EXPECT_NEAR(swapped.b * fit.b, 1, 1e-10);
            EXPECT_NEAR(swapped.Chi2, fit.Chi2, 1e-10 * fit.Chi2);
            s.SDY[3] = -s.SDY[3]; // only squares of SDs matter
            for (double& y : s.Y)
                y = -y;
            const LineFit flipped = FitLineXYErrors(s.X, s.Y, s.SDX, s.SDY);
            EXPECT_NEAR(flipped.b, -fit.b, 1e-12 * std::fabs(fit.b));
            EXPECT_NEAR(flipped.SDa, fit.SDa, 1e-10 * fit.SDa);
            EXPECT_NEAR(flipped.SDb, fit.SDb, 1e-10 * fit.SDb);
        }
}

} // namespace

} // namespace corvane::stats::test
