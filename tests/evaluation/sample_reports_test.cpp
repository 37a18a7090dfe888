#include "core/option_changes.h"
#include "evaluation/calculate.h"
#include "files/dataset_reader.h"
#include "platform/native/native_file_store.h"
#include "support/golden.h"
#include "support/run_fakes.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace corvane {
namespace {

using Options = AnalysisOptions;
using Settings = std::initializer_list<std::pair<OptionRow::Member, OptionValue>>;
constexpr std::int16_t off = 0, on = 1;

/// The four sections that look at X, Y and X/Y each as a sample.
class SampleReports : public ::testing::Test {
protected:
    /// Their part of the report of a dataset file.
    std::string ReportOf(const std::string& path, const FileStore& files, Settings settings = {}) {
        EXPECT_TRUE(LoadFile(path, dataset, session, files).Complete());
        for (const OptionRow& row : OptionTable())
            if (row.role == OptionRole::Gate)
                ChangeOption(dataset, session, row, off);
        for (const auto gate : {&Options::DISTRIBUTION_ANALYSIS, &Options::MOMENT_STATISTIC,
                                &Options::ROBUST_STATISTICS, &Options::INDEX_ANALYSIS})
            ChangeOption(dataset, session, OptionOf(gate), on);
        for (const auto& [member, value] : settings)
            ChangeOption(dataset, session, OptionOf(member), value);
        const std::string text = Calculate(dataset, session, fakes.Services()).report.Text();
        return text.substr(text.find("DISTRIBUTION ANALYSES"));
    }
    std::string ReportOfPairs(int rows, const std::string& pairs) {
        fakes.files.files["/data/pairs.KOV"] =
            "4,0,0\nADD_COMMENT= 0\nN=" + std::to_string(rows) + "\nDATA:\n" + pairs;
        return ReportOf("/data/pairs.KOV", fakes.files);
    }
    std::string ReportOfCars(Settings settings = {}) {
        return ReportOf(std::string(CORVANE_EXAMPLES) + "/mtcars.KOV", NativeFileStore(), settings);
    }

    Dataset dataset;
    SessionState session;
    testing::RunFakes fakes;
};

TEST_F(SampleReports, WithComments) {
    testing::ExpectGolden("samples_mtcars.txt", ReportOfCars());
    EXPECT_EQ(fakes.feedback.shown,
              (std::vector<std::string>{"Regression...", "Distribution...", "Moments...",
                                        "Robust statistics...", "Index...", "(hidden)"}));
}

TEST_F(SampleReports, SwappedWithoutComments) {
    testing::ExpectGolden("samples_mtcars_swapped.txt",
                          ReportOfCars({{&Options::SwapXY, on}, {&Options::ADD_COMMENT, off}}));
}

TEST_F(SampleReports, ZerosInY) {
    testing::ExpectGolden("samples_zeros.txt",
                          ReportOfPairs(7, "1.2,,0,,,,\n0,,1.5,,,,\n3.1,,3,,,,\n4.4,,0,,,,\n5,,5.5,,,,\n"
                                           "6.3,,6,,,,\n7.7,,8,,,,\n"));
}

TEST_F(SampleReports, NegativeValuesWhoseMeanIsZero) {
    testing::ExpectGolden("samples_negative.txt",
                          ReportOfPairs(6, "-3.2,,-3,,,,\n-1.5,,-2,,,,\n-0.4,,-0.5,,,,\n0.9,,0.5,,,,\n"
                                           "2.8,,1.5,,,,\n3.1,,3.5,,,,\n"));
}

TEST_F(SampleReports, ConstantY) {
    testing::ExpectGolden("samples_constant_y.txt",
                          ReportOfPairs(6, "1,,3.5,,,,\n2.5,,3.5,,,,\n3,,3.5,,,,\n4,,3.5,,,,\n"
                                           "6.5,,3.5,,,,\n7,,3.5,,,,\n"));
}

TEST_F(SampleReports, ConstantRatioOfThreePairs) {
    testing::ExpectGolden("samples_constant_ratio.txt", ReportOfPairs(3, "2,,1,,,,\n4,,2,,,,\n7,,3.5,,,,\n"));
}

TEST_F(SampleReports, ARatioBeyondRangeLeavesZeros) {
    const std::string text = ReportOfPairs(3, "1e200,,1e-200,,,,\n2,,1,,,,\n3,,5,,,,\n");
    EXPECT_NE(text.find("\r\nAve(X/Y)     :    0.00000\r\nSD(X/Y)      :    0.00000\r\n"), std::string::npos);
}

} // namespace
} // namespace corvane
