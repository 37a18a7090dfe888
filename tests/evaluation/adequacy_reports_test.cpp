#include "core/format/text_lists.h"
#include "evaluation/report_of.h"
#include "support/golden.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>

namespace corvane {
namespace {

using Options = AnalysisOptions;
using testing::ExpectGolden;

const testing::Gates gates = {&Options::DIVERSE_MEASURES, &Options::CONCORDANCE_TEST, &Options::GENERAL_CCC,
                              &Options::MSEP_ANALYSIS};

const ReportSection& Section(const RunResult& run, const char* id) {
    for (const ReportSection& section : run.report.Sections())
        if (section.id == id)
            return section;
    throw std::logic_error(std::string("no section ") + id);
}

const ReportField& Field(const ReportSection& section, const std::string& name) {
    for (const ReportLine& line : section.lines)
        for (const ReportPiece& piece : line.pieces)
            if (piece.isField && piece.field.name == name)
                return piece.field;
    throw std::logic_error("no field " + name);
}

std::vector<std::string> Lines(const ReportSection& section) {
    std::vector<std::string> lines;
    for (const ReportLine& line : section.lines)
        lines.push_back(line.Text());
    return lines;
}

TEST(AdequacyReports, WithComments) {
    ExpectGolden("adequacy_mtcars.txt", testing::RunOfExample("mtcars.KOV", gates).report.Text());
}

TEST(AdequacyReports, SwappedWithoutComments) {
    const RunResult run = testing::RunOfExample(
        "mtcars.KOV", gates, {{&Options::SwapXY, std::int16_t{1}}, {&Options::ADD_COMMENT, std::int16_t{0}}});
    ExpectGolden("adequacy_swapped.txt", run.report.Text());
}

TEST(AdequacyReports, NegativeMeansAndNoBiasAtAll) {
    const RunResult run = testing::RunOfPairs(
        "negative.KOV",
        {{"-5", "-4.25"}, {"-3.5", "-4.5"}, {"-1.5", "-1"}, {"0.5", "1.5"}, {"-2.5", "-3.25"}, {"0", "-0.5"}},
        gates);
    ExpectGolden("adequacy_negative.txt", run.report.Text());
}

TEST(AdequacyReports, ConstantY) {
    const RunResult run = testing::RunOfPairs(
        "constant.KOV",
        {{"1", "3.5"}, {"2.5", "3.5"}, {"3", "3.5"}, {"4", "3.5"}, {"6.5", "3.5"}, {"7", "3.5"}}, gates);
    ExpectGolden("adequacy_constant_y.txt", run.report.Text());
    // Nor is there a NaN, which would lose its line, where X is constant, too.
    const RunResult both =
        testing::RunOfPairs("both.KOV", {{"1", "2"}, {"1", "2"}, {"1", "2"}, {"1", "2"}}, gates);
    for (const char* id : {"diverse_measures", "concordance", "generalized_concordance", "msep"}) {
        EXPECT_TRUE(Section(both, id).failures.empty()) << id;
        EXPECT_EQ(Section(both, id).lines.size(), Section(run, id).lines.size()) << id;
    }
}

TEST(AdequacyReports, PerfectDisagreementSaturates) {
    const RunResult run =
        testing::RunOfPairs("opposite.KOV", {{"1", "5"}, {"2", "4"}, {"4", "2"}, {"5", "1"}}, gates);
    const std::vector<std::string> lines = Lines(Section(run, "concordance"));
    EXPECT_EQ(std::ranges::count(lines, "rc ± SE rc           :   -1.00000 ±    0.00000"), 1);
    EXPECT_EQ(std::ranges::count(lines, "Transformed Lower - Upper 95% CI    : [n/a, n/a]"), 2);
    EXPECT_EQ(std::ranges::count(lines, "Un-transformed Lower - Upper 95% CI : [-1.00000, -1.00000]"), 2);
}

TEST(AdequacyReports, AnMsepOfZeroEndsItsSection) {
    // The squares of these differences are below the smallest double.
    const RunResult run = testing::RunOfPairs(
        "tiny.KOV", {{"1e-200", "2e-200"}, {"2e-200", "1e-200"}, {"3e-200", "4e-200"}}, gates);
    EXPECT_EQ(Lines(Section(run, "msep")),
              std::vector<std::string>{"Mean Square Error of Prediction     :     0.00000"});
}

TEST(AdequacyReports, AMeanOfZeroHasNoPercentages) {
    const RunResult run = testing::RunOfPairs("zero.KOV", {{"-1", "0"}, {"0", "1.5"}, {"1", "1"}}, gates);
    const std::vector<std::string> diverse = Lines(Section(run, "diverse_measures"));
    EXPECT_EQ(std::ranges::count(diverse, "Mean Bias, % of X (Predicted)      : !! Mean X is Zero !!"), 1);
    EXPECT_EQ(std::ranges::count(diverse, "MAE, % of X (Predicted)            : !! Mean X is Zero !!"), 1);
    EXPECT_EQ(std::ranges::count(diverse, "Mean Bias, % of Y (Observed)       :  100.00000"), 1);

    // MSEP = (1 + 2.25 + 0) / 3, its root 124.9 % of mean Y.
    const ReportSection& msep = Section(run, "msep");
    EXPECT_EQ(msep.failures, std::vector<std::string>{"division by zero"});
    const std::vector<std::string> lines = Lines(msep);
    EXPECT_EQ(lines.at(5), "RMSEP, % of mean Y                  :   124.89996");
    EXPECT_EQ(lines.at(7), "MSEP Decomposition I:");
    EXPECT_EQ(lines.size(), 16U);
}

TEST(AdequacyReports, ThePartsAddUpAndTheSquaredDistanceIsLins) {
    for (const char* example : {"mtcars.KOV", "cars.KOV", "faithful.KOV", "pearson.KOV"}) {
        SCOPED_TRACE(example);
        const RunResult run = testing::RunOfExample(example, gates);
        const ReportField& rc = Field(Section(run, "concordance"), "rc");
        const ReportField& Rg = Field(Section(run, "generalized_concordance"), "Squared.Rg");
        EXPECT_EQ(rc.text, Rg.text);

        const auto number = [&](const std::string& name) {
            return std::get<double>(Field(Section(run, "msep"), name).field.value);
        };
        const auto expectSum = [&](std::initializer_list<std::string> parts) {
            double sum = 0, percent = 0;
            for (const std::string& part : parts) {
                sum += number(part);
                percent += number(part + "Percent");
            }
            EXPECT_NEAR(sum / number("MSEP"), 1, 1e-13);
            EXPECT_NEAR(percent, 100, 1e-11);
        };
        expectSum({"I.MeanBias", "I.UnequalVariances", "I.IncompleteCovariation"});
        expectSum({"II.MeanBias", "II.SystematicBias", "II.RandomErrors"});
    }
}

} // namespace
} // namespace corvane
