#include "evaluation/report_of.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>

namespace corvane {
namespace {

using Options = AnalysisOptions;

const testing::Gates gates = {&Options::DIVERSE_MEASURES, &Options::CONCORDANCE_TEST, &Options::GENERAL_CCC,
                              &Options::MSEP_ANALYSIS};

const ReportSection& Section(const RunResult& run, const char* id) {
    for (const ReportSection& section : run.report.Sections())
        if (section.id == id)
            return section;
    throw std::logic_error(std::string("no section ") + id);
}

std::vector<std::string> Lines(const ReportSection& section) {
    std::vector<std::string> lines;
    for (const ReportLine& line : section.lines)
        lines.push_back(line.Text());
    return lines;
}

TEST(AdequacyReports, ConstantSamplesLoseNoLine) {
    const RunResult run =
        testing::RunOfPairs("both.KOV", {{"1", "2"}, {"1", "2"}, {"1", "2"}, {"1", "2"}}, gates);
    const RunResult usual = testing::RunOfExample("mtcars.KOV", gates);
    for (const char* id : {"diverse_measures", "concordance", "generalized_concordance", "msep"}) {
        EXPECT_TRUE(Section(run, id).failures.empty()) << id;
        EXPECT_EQ(Section(run, id).lines.size(), Section(usual, id).lines.size()) << id;
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

/// Squares of such data are out of a double's range, but no line is lost, and what has no unit is as it was.
TEST(AdequacyReports, TheUnitOfTheDataDoesNotMatter) {
    const testing::Gates all = {
        &Options::DIVERSE_MEASURES,   &Options::CONCORDANCE_TEST, &Options::GENERAL_CCC,
        &Options::MSEP_ANALYSIS,      &Options::MSPE_BOOTSTRAP,   &Options::KLEIJNEN_ANALYSIS,
        &Options::DEVIATION_ANALYSIS, &Options::WEIGHED_DEVIANCE, &Options::RESIDUAL_ANALYSIS};
    const auto run = [&](const std::string& power) {
        std::vector<std::string> rows;
        for (const auto& [x, y] :
             {std::pair{"1.5", "1"}, {"2", "3.25"}, {"4", "3"}, {"5.5", "7"}, {"8", "8.5"}})
            rows.push_back(x + power + ",," + y + power + ",,,,");
        return testing::Workbench().OpenRows("units.KOV", rows).Only(all).Evaluate();
    };
    const RunResult usual = run("");
    for (const char* power : {"e-300", "e-155", "e155", "e300"}) {
        const RunResult other = run(power);
        for (const ReportSection& section : usual.report.Sections()) {
            const ReportSection& found = Section(other, section.id.c_str());
            EXPECT_EQ(found.failures, section.failures) << section.id << power;
            ASSERT_EQ(found.lines.size(), section.lines.size()) << section.id << power;
            for (std::size_t i = 0; i < section.lines.size(); ++i) {
                const std::string line = section.lines[i].Text(), same = found.lines[i].Text();
                const bool unitless =
                    section.id == "concordance" || section.id == "generalized_concordance" ||
                    line.starts_with("Coefficient of variation of MSEP") || line.find("F-value") != line.npos;
                if (unitless) {
                    EXPECT_EQ(same, line) << power;
                } else if (section.id == "msep" && line.ends_with(" %)")) {
                    EXPECT_EQ(same.substr(same.rfind(" (")), line.substr(line.rfind(" ("))) << power;
                }
            }
        }
    }
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

} // namespace
} // namespace corvane
