#include "core/grid_operations.h"
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

/// The report of an example with only the regression sections ticked, and then the given settings.
std::string ReportOf(const std::string& example, Settings settings) {
    NativeFileStore files;
    Dataset dataset;
    SessionState session;
    const LoadOutcome loaded =
        LoadFile(std::string(CORVANE_EXAMPLES) + "/" + example, dataset, session, files);
    EXPECT_TRUE(loaded.Complete()) << loaded.Error();
    for (const OptionRow& row : OptionTable())
        if (row.role == OptionRole::Gate)
            ChangeOption(dataset, session, row, std::int16_t{0});
    for (const auto member : {&Options::PARAMETER_TEST, &Options::OLS_SLS})
        ChangeOption(dataset, session, OptionOf(member), std::int16_t{1});
    for (const auto& [member, value] : settings)
        ChangeOption(dataset, session, OptionOf(member), value);
    testing::RunFakes fakes;
    return Calculate(dataset, session, fakes.Services()).report.Text();
}

TEST(GoldenReports, RegularLeastSquares) {
    testing::ExpectGolden("mtcars.txt",
                          ReportOf("mtcars.KOV", {{&Options::SHOW_LITERATURE, std::int16_t{1}}}));
}

TEST(GoldenReports, SwappedWithoutComments) {
    testing::ExpectGolden("mtcars_swapped.txt",
                          ReportOf("mtcars.KOV", {{&Options::SwapXY, std::int16_t{1}},
                                                  {&Options::ADD_COMMENT, std::int16_t{0}}}));
}

TEST(GoldenReports, ErrorsInBothVariables) {
    testing::ExpectGolden("pearson_weighted.txt", ReportOf("pearson.KOV", {}));
}

TEST(GoldenReports, OneSideIgnored) {
    testing::ExpectGolden("pearson_ignored_x.txt",
                          ReportOf("pearson.KOV", {{&Options::UNCERTAINTY_X, std::int16_t{1}}}));
}

TEST(GoldenReports, LeastAbsoluteDeviations) {
    testing::ExpectGolden("cars_robust.txt", ReportOf("cars.KOV", {}));
}

TEST(GoldenReports, ConstantY) {
    testing::MemoryFiles files;
    files.files["/data/constant.KOV"] =
        "4,0,0\nOLS_SLS= 1\nN=6\nDATA:\n1,,3.5,,,,\n2.5,,3.5,,,,\n3,,3.5,,,,\n"
        "4,,3.5,,,,\n6.5,,3.5,,,,\n7,,3.5,,,,\n";
    Dataset dataset;
    SessionState session;
    ASSERT_TRUE(LoadFile("/data/constant.KOV", dataset, session, files).Complete());
    testing::RunFakes fakes;
    const RunResult result = Calculate(dataset, session, fakes.Services());
    const std::string text = result.report.Text();
    // Later sections follow these three; their own tests watch them.
    const std::size_t next = text.find("\r\n\r\nDISTRIBUTION ANALYSES");
    testing::ExpectGolden("constant_y.txt", text.substr(0, next));
}

} // namespace
} // namespace corvane
