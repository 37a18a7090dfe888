#include "stats/concordance.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "stats/correlation.h"
#include "stats/degenerate_samples.h"
#include "stats/line_family.h"
#include "stats/line_fits.h"
#include "stats/pair_statistics.h"
#include "stats/reference_data.h"
#include "stats/sums.h"
#include "stats/two_sample_tests.h"

namespace corvane::stats::test {

namespace {

using Values = std::vector<double>;
constexpr double largest = std::numeric_limits<double>::max();

constexpr std::pair<const char*, double Concordance::*> Members[] = {
    {"Cb", &Concordance::Cb},         {"u", &Concordance::u},           {"v", &Concordance::v},
    {"rc", &Concordance::rc},         {"SErc", &Concordance::SErc},     {"Z", &Concordance::Z},
    {"P", &Concordance::P},           {"Lower", &Concordance::Lower},   {"Upper", &Concordance::Upper},
    {"TRc", &Concordance::TRc},       {"SETRc", &Concordance::SETRc},   {"TZ", &Concordance::TZ},
    {"TP", &Concordance::TP},         {"TLower", &Concordance::TLower}, {"TUpper", &Concordance::TUpper},
    {"ULower", &Concordance::ULower}, {"UUpper", &Concordance::UUpper}, {"ICC", &Concordance::ICC},
    {"Ar", &Concordance::Ar},         {"Gr", &Concordance::Gr},         {"SEGr", &Concordance::SEGr},
    {"GZ", &Concordance::GZ},         {"GP", &Concordance::GP},         {"GLower", &Concordance::GLower},
    {"GUpper", &Concordance::GUpper}, {"TGr", &Concordance::TGr},       {"SETGr", &Concordance::SETGr},
    {"TGZ", &Concordance::TGZ},       {"TGP", &Concordance::TGP},       {"E1", &Concordance::E1},
    {"E2", &Concordance::E2},         {"E3", &Concordance::E3},         {"E4", &Concordance::E4}};

Concordance Of(const Values& x, const Values& y) {
    const PairSummary p = PairStatistics(x, y);
    return ConcordanceStatistics(
        {std::min(x.size(), y.size()), PearsonCorrelation(x, y).r, p.MeanDiff, p.SDX, p.SDY, p.SDDiff});
}

TEST(Concordance, AgreesWithTheReference) {
    std::size_t compared = 0;
    OnSetsWith("ConcordanceStatistics", [&](const ReferenceSet& set, const nlohmann::json& expected) {
        const Concordance c = Of(set.X, set.Y);
        for (const auto& [name, member] : Members) {
            if (!expected.contains(name))
                continue;
            const std::string key = name;
            const bool plainLimit = key == "Lower" || key == "Upper" || key == "GLower" || key == "GUpper";
            const bool limit = key.ends_with("Lower") || key.ends_with("Upper") || key[0] == 'E';
            const double se = plainLimit ? std::min(c.SErc, c.SEGr)
                              : limit    ? std::min(c.SETRc, c.SETGr)
                                         : 0.0;
            // 1 - r^2 is 6e-6 in norris.
            const bool error = set.Name == "norris" && key.starts_with("SE");
            const double absolute = key.ends_with("P") ? 0.0 : 1e-13;
            ExpectClose(expected, {error ? 1e-7 : 1e-10, absolute + 2e-8 * se}, {{name, c.*member}});
            ++compared;
        }
    });
    EXPECT_GT(compared, 400u);
}

TEST(Concordance, OfPeakFlowMetersIsAsPublished) {
    const ReferenceSet& pefr = Reference("pefr");
    const nlohmann::json& published = pefr.Values.at("ConcordanceStatistics_published");
    const Concordance c = Of(pefr.X, pefr.Y);
    ExpectClose(published, {0, 5e-10}, {{"rc", c.rc}, {"ULower", c.ULower}, {"UUpper", c.UUpper}});
    ExpectClose(published, {0, 5e-11}, {{"Cb", c.Cb}});
}

TEST(Concordance, OfPerfectDisagreementSaturates) {
    const Concordance c = Of({1, 2, 4, 5}, {5, 4, 2, 1});
    for (const double value :
         {c.rc, c.Lower, c.Upper, c.ULower, c.UUpper, c.Gr, c.GLower, c.GUpper, c.E2, c.E4})
        EXPECT_EQ(value, -1);
    for (const double value : {c.Z, c.TRc, c.TZ, c.TLower, c.TUpper, c.GZ, c.TGr, c.TGZ, c.E1, c.E3})
        EXPECT_EQ(value, -largest);
    for (const double value : {c.SErc, c.SETRc, c.SEGr, c.SETGr, c.P, c.TP, c.GP, c.TGP})
        EXPECT_EQ(value, 0.0);
}

TEST(Concordance, WithoutSpreadHasNoValueButItsShifts) {
    const Concordance none;
    const auto expect = [&](const Concordance& c, double u, double v) {
        for (const auto& [name, member] : Members)
            EXPECT_EQ(c.*member, *name == 'u' ? u : *name == 'v' ? v : none.*member) << name;
    };
    const Values same = {3, 3, 3}, rising = {1, 2, 9}, centred = {1, 3, 5};
    expect(Of(same, rising), largest, largest);
    expect(Of(rising, same), -largest, 0.0);
    expect(Of(same, centred), 0.0, largest);
    expect(Of(same, {4, 4, 4}), 0.0, 0.0);
    expect(Of({1}, {2}), 0.0, 0.0);
    expect(Of({}, {}), 0.0, 0.0);
}

TEST(Concordance, KeepsItsDigitsFarFromZero) {
    // u and rc from the definitions with 50 digits in mpmath 1.2.1.
    const Values offsets = {3, 500, 77, 1024, 2048, 4095, 1500}, steps = {0.5, 0.75, 0.25, 0.5, 1, 0.25, 0.5};
    Values x, y;
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        x.push_back(1e9 + offsets[i] / 256);
        y.push_back(x.back() + steps[i]);
    }
    const Concordance c = Of(x, y);
    EXPECT_NEAR(c.u, 0.10363170853385881, 1e-15);
    EXPECT_NEAR(c.rc, 0.99351952370057, 1e-14);
    EXPECT_NEAR(c.Z, 212.34924147, 1e-8);
}

TEST(Concordance, OfEqualMeansHasNoShift) {
    // 5/3 from either side is not the same double; nor is a zero a negative one.
    EXPECT_EQ(std::signbit(Of({1, 4, 0}, {2, 0, 3}).u) ? -1 : Of({1, 4, 0}, {2, 0, 3}).u, 0.0);
    EXPECT_EQ(Of({5, 9, 7}, {9, 9, 3}).ICC, 0.0);
    // Nor are the least-squares line's intercept and, of the sums and differences, its slope.
    const LineFit through = FitLine(Values{4, 5, 3, 6, 9}, Values{4, 8, 1, 6, 8}),
                  level = FitLine(Values{14, 15, 12, 1, 6, 9, 11}, Values{-2, 3, 0, 1, 2, -7, 3});
    EXPECT_FALSE(through.a != 0.0 || std::signbit(through.a));
    EXPECT_FALSE(level.b != 0.0 || std::signbit(level.b));
    std::mt19937_64 generator(7);
    for (int round = 0; round < 300; ++round) {
        Values x, y;
        for (int i = 0; i < 3 + round % 9; ++i) {
            x.push_back(0.1 * static_cast<double>(generator() % 100));
            y.insert(y.begin() + static_cast<std::ptrdiff_t>(generator() % x.size()), x.back());
        }
        const TestResult t = TTestEqualVariance(y, x), welch = TTestUnequalVariance(y, x);
        const LineFamily family = FitLineFamily(x, y);
        const double reducedMajorAxis = family.B[4] > 0 ? family.A[4] : 0;
        for (const double value : {Of(x, y).u, t.Statistic, welch.Statistic, reducedMajorAxis}) {
            ASSERT_EQ(value, 0.0) << round;
            ASSERT_FALSE(std::signbit(value)) << round;
        }
    }
}

TEST(Concordance, HasNoUnit) {
    const ReferenceSet& pefr = Reference("pefr");
    const Concordance one = Of(pefr.X, pefr.Y);
    for (const int exponent : {-1000, -530, 530, 1000}) {
        const Concordance c = Of(Scaled(pefr.X, exponent), Scaled(pefr.Y, exponent));
        for (const auto& [name, member] : Members)
            EXPECT_NEAR(c.*member, one.*member, 1e-12 * std::fabs(one.*member)) << name << " 2^" << -exponent;
    }
}

TEST(Concordance, KeepsItsDigitsNextToOne) {
    // r = 1 and SDY = (1 + e) SDX: 1 - rc = (1 - Cb) = w / (2 + w) with w = e^2 / (1 + e), and
    // Var rc = 0, while rounding of rc itself would leave 1 - rc no digit.
    const double e = 0x1p-30, w = e * e / (1 + e);
    const Concordance c = ConcordanceStatistics({10, 1.0, 0.0, 1.0, 1 + e, e});
    EXPECT_NEAR(c.TRc / (0.5 * std::log((4 + w) / w)), 1.0, 1e-9);
    EXPECT_EQ(c.SErc, 0.0);
    // A location shift of more than 1e154: rc / SE is r / sqrt(...) still.
    const Concordance far = ConcordanceStatistics({10, 0.5, -1e300, 1.0, 1.0, 1.0});
    EXPECT_NEAR(far.Z, 0.5 / std::sqrt((0.75 + 0.25 * 2 * (1 + 2 * (0.5 - 0.5))) / 8), 1e-14);
}

TEST(Concordance, OfDegenerateSamplesIsFinite) {
    const auto check = [](const Concordance& c, const std::string& what) {
        for (const auto& [name, member] : Members)
            ASSERT_TRUE(std::isfinite(c.*member)) << what << " " << name;
        for (const double value : {c.P, c.TP, c.GP, c.TGP})
            ASSERT_TRUE(value >= 0 && value <= 1) << what;
        for (const double value : {c.rc, c.Gr, c.ULower, c.UUpper, c.E2, c.E4})
            ASSERT_LE(std::fabs(value), 1 + 1e-15) << what;
    };
    const double none = std::nan(""), infinity = std::numeric_limits<double>::infinity();
    const double values[] = {0.0,       1.0,     -1.0,     0.3,    none,  infinity,
                             -infinity, largest, -largest, 1e-300, 5e-324};
    ForDegenerateSamples([&](const DegenerateSample& sample) {
        check(Of(sample.X, sample.Y), "round " + std::to_string(sample.Round));
        // Moments that no sample has.
        std::mt19937_64 generator(static_cast<std::uint64_t>(sample.Round));
        const auto any = [&] { return values[generator() % std::size(values)]; };
        check(ConcordanceStatistics({generator() % 5, any(), any(), any(), any(), any()}),
              "moments of round " + std::to_string(sample.Round));
    });
}

} // namespace

} // namespace corvane::stats::test
