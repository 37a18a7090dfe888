#include "evaluation/report_of.h"
#include "support/golden.h"

namespace corvane {
namespace {

using namespace testing;
using Options = AnalysisOptions;
constexpr std::int16_t off = 0, on = 1, grey = 2;

struct GoldenReport {
    const char* name;
    const char* file; ///< an example, or the name of the pairs
    TextPairs pairs;
    Gates gates;
    Settings settings = {};
    const char* from = ""; ///< the title from which on the text counts
};

const Gates regression = {&Options::PARAMETER_TEST, &Options::OLS_SLS};
const Gates adequacy = {&Options::DIVERSE_MEASURES, &Options::CONCORDANCE_TEST, &Options::GENERAL_CCC,
                        &Options::MSEP_ANALYSIS};
const Gates balance = {&Options::BALANCE_ANALYSIS, &Options::ORTHOGONAL_BALANCE};
const Gates samples = {&Options::DISTRIBUTION_ANALYSIS, &Options::MOMENT_STATISTIC,
                       &Options::ROBUST_STATISTICS, &Options::INDEX_ANALYSIS};
const Gates difference = {&Options::MSPE_BOOTSTRAP, &Options::KLEIJNEN_ANALYSIS,
                          &Options::BLAND_ALTMAN_ANALYSIS};
const Settings quiet = {{&Options::ADD_COMMENT, off}};
const Settings swapped = {{&Options::SwapXY, on}, {&Options::ADD_COMMENT, off}};
const char* const distribution = "DISTRIBUTION ANALYSES";
const char* const bootstrap = "BOOTSTRAP ANALYSIS OF MSEP";
const TextPairs constantY = {{"1", "3.5"}, {"2.5", "3.5"}, {"3", "3.5"},
                             {"4", "3.5"}, {"6.5", "3.5"}, {"7", "3.5"}};

// Means below zero and no bias at all, a slope of exactly zero, a mean of Y of zero, a constant ratio.
const TextPairs belowZero = {{"-5", "-4.25"}, {"-3.5", "-4.5"},  {"-1.5", "-1"},
                             {"0.5", "1.5"},  {"-2.5", "-3.25"}, {"0", "-0.5"}};
const TextPairs level = {{"1", "1"}, {"2", "3"}, {"3", "2"}, {"4", "3"}, {"5", "1"}};
const TextPairs tied = {{"2", "3"}, {"2", "3"}, {"2", "3"}, {"2", "3"}};
const TextPairs zeros = {{"1.2", "0"}, {"0", "1.5"}, {"3.1", "3"}, {"4.4", "0"},
                         {"5", "5.5"}, {"6.3", "6"}, {"7.7", "8"}};
const TextPairs meanZero = {{"-3.2", "-3"}, {"-1.5", "-2"}, {"-0.4", "-0.5"},
                            {"0.9", "0.5"}, {"2.8", "1.5"}, {"3.1", "3.5"}};
const TextPairs sameRatio = {{"2", "1"}, {"4", "2"}, {"7", "3.5"}};

Settings Bootstrap(const char* percentage, Settings settings = {}) {
    settings.emplace_back(&Options::MSPE_BOOTSTRAP_SIZE, std::string(percentage));
    return settings;
}

std::vector<GoldenReport> Reports() {
    std::vector<GoldenReport> reports = {
        {"mtcars", "mtcars.KOV", {}, regression, {{&Options::SHOW_LITERATURE, on}}},
        {"mtcars_swapped", "mtcars.KOV", {}, regression, swapped},
        {"pearson_weighted", "pearson.KOV", {}, regression},
        {"pearson_ignored_x", "pearson.KOV", {}, regression, {{&Options::UNCERTAINTY_X, on}}},
        {"cars_robust", "cars.KOV", {}, regression},
        {"constant_y", "constant.KOV", constantY, regression},
        {"adequacy_mtcars", "mtcars.KOV", {}, adequacy},
        {"adequacy_swapped", "mtcars.KOV", {}, adequacy, swapped},
        {"adequacy_negative", "negative.KOV", belowZero, adequacy},
        {"adequacy_constant_y", "constant.KOV", constantY, adequacy},
        {"balance_mtcars", "mtcars.KOV", {}, balance},
        {"balance_mtcars_swapped", "mtcars.KOV", {}, balance, swapped},
        {"balance_pearson", "pearson.KOV", {}, {&Options::ORTHOGONAL_BALANCE}}, // a falling line
        {"balance_level", "pairs.KOV", level, balance, quiet},
        {"balance_tied", "pairs.KOV", tied, balance, quiet},
        {"ranks_mtcars",
         "mtcars.KOV",
         {},
         {&Options::RANK_ANALYSIS, &Options::THRESHOLD_ANALYSIS, &Options::DISTANCE_ANALYSIS},
         {{&Options::TRESHOLD_RANK, "15.5"}, {&Options::TRESHOLD_XY, "21"}}},
        {"samples_mtcars", "mtcars.KOV", {}, samples, {}, distribution},
        {"samples_mtcars_swapped", "mtcars.KOV", {}, samples, swapped, distribution},
        {"samples_zeros", "pairs.KOV", zeros, samples, quiet, distribution},
        {"samples_negative", "pairs.KOV", meanZero, samples, quiet, distribution},
        {"samples_constant_y", "pairs.KOV", constantY, samples, quiet, distribution},
        {"samples_constant_ratio", "pairs.KOV", sameRatio, samples, quiet, distribution},
        {"difference_cars", "cars.KOV", {}, difference, Bootstrap("100"), bootstrap},
        // 32767.5 is a half that goes to the even 32768.
        {"difference_pearson", "pearson.KOV", {}, difference, Bootstrap("327675"), bootstrap}};
    // Gates ticked grey are set for these two analyses, and as what the first of them looks at.
    for (const std::int16_t tick : {on, grey}) {
        const Settings few = {{&Options::MSPE_BOOTSTRAP_SUBSAMPLE, std::string("250.5")},
                              {&Options::KLEIJNEN_ANALYSIS, tick},
                              {&Options::BLAND_ALTMAN_ANALYSIS, tick}};
        reports.push_back(
            {"difference_mtcars", "mtcars.KOV", {}, difference, Bootstrap("8", few), bootstrap});
        Settings coupled = swapped;
        coupled.emplace_back(&Options::DIVERSE_MEASURES, tick);
        reports.push_back(
            {"difference_mtcars_swapped", "mtcars.KOV", {}, difference, Bootstrap("5", coupled), bootstrap});
    }
    return reports;
}

TEST(GoldenReports, AreAsTheyWereRead) {
    for (const auto& [name, file, pairs, gates, settings, from] : Reports()) {
        const RunResult run =
            pairs.empty() ? RunOfExample(file, gates, settings) : RunOfPairs(file, pairs, gates, settings);
        const std::string text = run.report.Text();
        ExpectGolden(std::string(name) + ".txt", text.substr(std::min(text.find(from), text.size())));
        EXPECT_EQ(run.warnings.size(), name == std::string("difference_pearson") ? 1U : 0U) << name;
    }
}

} // namespace
} // namespace corvane
