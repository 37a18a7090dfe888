#include "generator/pair_generator.h"

#include "core/format/failure.h"
#include "stats/pair_statistics.h"
#include "support/fakes.h"

#include <cmath>
#include <gtest/gtest.h>

namespace corvane {
namespace {

constexpr PairMethod methods[] = {PairMethod::Frank, PairMethod::Clayton, PairMethod::Harlow};

/// Means -5 and 20, variances 4 and 9.
PairRequest Request(PairMethod method, std::int32_t N, double r) {
    return {method, N, -5, 20, 4, 9, r};
}

// tests/generator/reference.py: generator, uniforms and conditional distributions written anew.
TEST(DrawPairs, FirstPairsOfASeed) {
    struct Case {
        PairMethod method;
        double Y[3];
    };
    for (const auto& [method, Y] :
         {Case{PairMethod::Frank, {24.484281286274, 18.150666401683, 22.431028829729}},
          {PairMethod::Clayton, {24.045320970147, 17.856907932348, 22.663181346219}},
          {PairMethod::Harlow, {26.31171841238, 14.999254027406, 23.711195600574}}}) {
        const RandomPairs pairs = DrawPairs(Request(method, 3, 0.5), 20240611);
        const double X[] = {-2.8243630652076, -2.7931672423931, -4.3502645082622};
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(pairs.X[i], X[i], 1e-12);
            EXPECT_NEAR(pairs.Y[i], Y[i], 1e-8);
        }
    }
}

// Standard errors of normal samples: mean sqrt(Var/N), variance Var sqrt(2/(N - 1)). That of r is the root
// sum of squares over N of its influence, x y - r (x^2 + y^2) / 2 of standardised values (Devlin,
// Gnanadesikan and Kettenring, 1975, Biometrika 62, 531-545), since the pairs of a copula are not bivariate
// normal.
TEST(DrawPairs, TenSeedsKeepMeansVariancesAndCorrelation) {
    constexpr double N = 100'000;
    for (const PairMethod method : methods)
        for (const double r : {0.3, 0.95, 0.999})
            for (std::uint64_t seed = 1; seed <= 10; ++seed) {
                const RandomPairs pairs = DrawPairs(Request(method, static_cast<std::int32_t>(N), r), seed);
                const stats::PairSummary sample = stats::PairStatistics(pairs.X, pairs.Y);
                double influence = 0;
                for (std::size_t i = 0; i < pairs.X.size(); ++i) {
                    const double x = (pairs.X[i] + 5) / 2, y = (pairs.Y[i] - 20) / 3;
                    influence += std::pow(x * y - r * (x * x + y * y) / 2, 2);
                }
                const double sampleR = sample.CovXY / std::sqrt(sample.VarX * sample.VarY);
                SCOPED_TRACE("method " + std::to_string(static_cast<int>(method)) + ", seed " +
                             std::to_string(seed));
                EXPECT_NEAR(sample.MeanX, -5, 5 * std::sqrt(4 / N));
                EXPECT_NEAR(sample.MeanY, 20, 5 * std::sqrt(9 / N));
                EXPECT_NEAR(sample.VarX, 4, 5 * 4 * std::sqrt(2 / (N - 1)));
                EXPECT_NEAR(sample.VarY, 9, 5 * 9 * std::sqrt(2 / (N - 1)));
                EXPECT_NEAR(sampleR, r, 5 * std::sqrt(influence) / N);
            }
}

TEST(DrawPairs, ExtremeCorrelations) {
    for (const PairMethod method : methods)
        EXPECT_EQ(DrawPairs(Request(method, 50, 1), 7).Y, DrawPairs(Request(method, 50, 0.999), 7).Y);
    PairRequest far = Request(PairMethod::Harlow, 50, 0);
    const std::vector<double> noise = DrawPairs(far, 7).Y;
    far.MeanX = 1e6;
    EXPECT_EQ(DrawPairs(far, 7).Y, noise);
    EXPECT_THROW(DrawPairs({PairMethod::Harlow, 9, 0, 0, 1e-300, 1e300, 0.5}, 7), RunFailure);
}

TEST(RefusalOf, NamesTheFirstFault) {
    const std::string points = "Number of data points cannot be less than 3",
                      correlation = "Correlation has to be between o and 1",
                      variance = "Variance cannot be negative or zero";
    struct Case {
        std::int32_t N;
        double VarX, VarY, r;
        std::string refusal;
    };
    for (const auto& [N, VarX, VarY, r, refusal] : {Case{2, 0, 0, 2, points},
                                                    {-7, 1, 1, 0.5, points},
                                                    {3, 0, 0, 1.0001, correlation},
                                                    {3, 1, 1, -0.0001, correlation},
                                                    {3, 1, 1, std::nan(""), correlation},
                                                    {3, 0, 1, 0, variance},
                                                    {3, 1, -1, 1, variance},
                                                    {3, 1, 1, 0, ""},
                                                    {3, 1, 1, 1, ""}})
        EXPECT_EQ(RefusalOf({PairMethod::Frank, N, 0, 0, VarX, VarY, r}), refusal) << N << " " << VarX;
}

TEST(ReadGeneratorBoxes, PutsAZeroBeforeEveryText) {
    const auto read = [](const GeneratorBoxes& boxes) {
        return ReadGeneratorBoxes(boxes, PairMethod::Clayton);
    };
    const PairRequest request = read({"1e2", "", ".5", "2.25", "4 ", "1e-1"});
    EXPECT_EQ(std::vector<double>({request.MeanX, request.MeanY, request.VarX, request.VarY, request.r}),
              std::vector<double>({0, 0.5, 2.25, 4, 0.1}));
    EXPECT_EQ(request.N, 100);
    EXPECT_EQ(read({"2.5", "a", "b", "c", "d", "e"}).N, 2);
    EXPECT_EQ(read({"3.5", "", "", "", "", ""}).N, 4);
    for (const GeneratorBoxes& boxes : {GeneratorBoxes{"", "1", "1", "1", "1", "1"},
                                        {"-3", "1", "1", "1", "1", "1"},
                                        {"3E9", "1", "1", "1", "1", "1"},
                                        {"3", "-5", "1", "1", "1", "1"},
                                        {"3", "1", "+1", "1", "1", "1"},
                                        {"3", "1", "1", " 1", "1", "1"},
                                        {"3", "1", "1", "1", "1", "r"}})
        EXPECT_THROW(read(boxes), RunFailure) << boxes.points << boxes.MeanX;
}

TEST(GeneratePairs, ReplacesTheCellsOnceTheUserAgrees) {
    Dataset dataset;
    dataset.notes = "kept";
    testing::RecordingDialogs dialogs;
    testing::FixedRandom random;
    const auto generate = [&](std::int32_t N, bool overwrite) {
        return GeneratePairs(Request(PairMethod::Frank, N, 0.5), overwrite, dataset, dialogs, random);
    };
    const auto filled = [&] {
        int count = 0;
        for (std::int32_t row = 1; row <= dataset.cells.RowBound(); ++row)
            for (int column = ColumnX; column <= LastColumn; ++column)
                count += IsEmpty(dataset.cells.At(column, row)) ? 0 : 1;
        return count;
    };
    EXPECT_EQ(generate(8, false), GenerationEnd::Written);
    EXPECT_EQ(dialogs.questions.size(), 0u);
    for (int column = ColumnX; column <= LastColumn; ++column)
        dataset.cells.Set(column, 4, "old");
    EXPECT_EQ(generate(3, false), GenerationEnd::Declined);
    EXPECT_EQ(generate(2, true), GenerationEnd::Refused);
    EXPECT_EQ(dialogs.questions, std::vector<std::string>{"Do you want clear the dataset?"});
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{"Number of data points cannot be less than 3"});
    EXPECT_EQ(dataset.options.N, "8");
    EXPECT_EQ(filled(), 2 * 8 + 5);

    dialogs.answer = true;
    for (const bool overwrite : {false, true}) {
        dataset.cells.Set(ColumnExclude, 4, "y");
        EXPECT_EQ(generate(3, overwrite), GenerationEnd::Written);
        EXPECT_EQ(filled(), 2 * 3);
        EXPECT_EQ(dataset.cells.RowCount(), 3);
        EXPECT_EQ(dataset.options.N, "3");
        EXPECT_NEAR(*CellNumber(dataset.cells.At(ColumnY, 3)), 22.431028829729, 1e-8);
    }
    EXPECT_EQ(dialogs.questions.size(), 2u);
    EXPECT_EQ(dataset.notes, "kept");
}

} // namespace
} // namespace corvane
