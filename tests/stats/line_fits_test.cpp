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

TEST(FitLineXYErrors, KeepsItsDigitsWhereTheRangeIs1e13SDs) {
    // From York's formulas and the root of the derivative of Chi2, mpmath 1.2.1 with 90 digits.
    const auto expect = [](const LineFit& fit, const LineFit& wanted) {
        for (double LineFit::*value :
             {&LineFit::a, &LineFit::b, &LineFit::SDa, &LineFit::SDb, &LineFit::Chi2, &LineFit::Q})
            EXPECT_NEAR(fit.*value, wanted.*value, 1e-12 * std::fabs(wanted.*value));
    };
    const double steps[] = {0, 1, 2, 3, 4, 5, 6, 8}, offX[] = {1, -2, 0, 3, -1, 2, -3, 1},
                 offY[] = {-1, 0, 2, -2, 3, -1, 1, 0};
    const auto fit = [&](double sd, double off) {
        Sample s;
        for (std::size_t i = 0; i < 8; ++i) {
            s.X.push_back(0x1p24 * steps[i] + 0.5 * off * sd * offX[i]);
            s.Y.push_back(3 * 0x1p24 * steps[i] + 0.75 + off * sd * offY[i]);
            s.SDX.push_back(sd * static_cast<double>(1 + i % 3));
            s.SDY.push_back(sd * static_cast<double>(1 + i % 2));
        }
        return FitLineXYErrors(s.X, s.Y, s.SDX, s.SDY);
    };
    expect(fit(0x1p-17, 1), {0.74997835241103242, 3.0000000000003678, 1.9999269169966298e-5,
                             2.8326290621529773e-13, 6.2686500642432688, 0.39377846669714141});
    expect(fit(0x1p-9, 1), {0.74445821722409394, 3.0000000000941646, 0.0051198129077325295,
                            7.2515303994754945e-11, 6.2686500642078897, 0.3937784667009237});
    for (const double sd : {0x1p-17, 0x1p10, 0x1p40}) { // points on the line
        const LineFit exact = fit(sd, 0);
        EXPECT_EQ(exact.a, 0.75);
        EXPECT_EQ(exact.b, 3.0);
        EXPECT_EQ(exact.Chi2, 0.0);
    }
}

} // namespace

} // namespace corvane::stats::test
