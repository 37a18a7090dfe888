#include "core/option_changes.h"

#include <gtest/gtest.h>
#include <set>

namespace corvane {
namespace {

using Options = AnalysisOptions;

class OptionChanges : public ::testing::Test {
protected:
    ChangeResult Change(OptionRow::Member member, const OptionValue& value) {
        return ChangeOption(dataset, session, OptionOf(member), value);
    }

    Dataset dataset;
    SessionState session;
    Options& options = dataset.options;
};

TEST_F(OptionChanges, OneButtonOfAGroupIsSetAtMost) {
    Change(&Options::ROBUSTR, true);
    EXPECT_FALSE(options.LSM);
    EXPECT_TRUE(options.ROBUSTR);
    EXPECT_TRUE(options.HIST_BAR);
    Change(&Options::ROBUSTR, false);
    EXPECT_FALSE(options.LSM || options.WLSM || options.ROBUSTR);
}

TEST_F(OptionChanges, TheGraphHasTwoOrThreeDimensionsAndAPieOnlyTwo) {
    Change(&Options::HIST_Pie, true);
    Change(&Options::HIST_3D, std::int16_t{1});
    EXPECT_EQ(options.HIST_2D, 0);
    EXPECT_FALSE(options.HIST_Pie);
    EXPECT_TRUE(options.HIST_BAR);
    Change(&Options::HIST_2D, std::int16_t{1});
    EXPECT_EQ(options.HIST_3D, 0);
}

TEST_F(OptionChanges, TheDeviationProbabilityAndTheDeviationLimitsExcludeEachOther) {
    session.DeviationLower = -4; // derived by a run, never written into its box
    Change(&Options::DEVIATION_UPPER, "2.5");
    EXPECT_EQ(options.DEVIATION_CI_PROB, "0");
    EXPECT_EQ(session.DeviationUpper, 2.5);
    EXPECT_EQ(session.DeviationLower, -4);
    Change(&Options::DEVIATION_CI_PROB, "0");
    EXPECT_EQ(session.DeviationUpper, 2.5); // the text was "0" already
    Change(&Options::DEVIATION_CI_PROB, "90");
    EXPECT_EQ(options.DEVIATION_UPPER, "0");
    EXPECT_EQ(options.DEVIATION_LOWER, "0");
    EXPECT_EQ(session.DeviationLower, 0);
    EXPECT_EQ(session.DeviationUpper, 0);
    EXPECT_EQ(options.DEVIATION_CI_PROB, "90"); // handlers do not set each other off

    Change(&Options::RSTD_RESIDUE_LOWER, "-3 SD");
    EXPECT_EQ(session.RStdtResLower, -3);
    EXPECT_EQ(options.DEVIATION_CI_PROB, "90");
}

TEST_F(OptionChanges, TickingSwapExchangesTheColumnsOnce) {
    dataset.cells.Set(ColumnX, 1, std::string("1"));
    Change(&Options::SwapXY, std::int16_t{1});
    Change(&Options::SwapXY, std::int16_t{1});
    EXPECT_TRUE(IsEmpty(dataset.cells.At(ColumnX, 1)));
    Change(&Options::SwapXY, std::int16_t{0});
    EXPECT_FALSE(IsEmpty(dataset.cells.At(ColumnX, 1)));
}

TEST_F(OptionChanges, RowsAndBins) {
    EXPECT_EQ(Change(&Options::N, "1"), ChangeResult::TooFewRows);
    EXPECT_EQ(options.N, "1");
    EXPECT_EQ(dataset.cells.RowCount(), 19);
    EXPECT_EQ(Change(&Options::N, "40"), ChangeResult::Done);
    EXPECT_EQ(dataset.cells.RowCount(), 40);
    Change(&Options::HIST_BINS, "2");
    EXPECT_EQ(options.HIST_BINS, "2");
    TypeOption(dataset, session, OptionOf(&Options::HIST_BINS), "two");
    EXPECT_EQ(options.HIST_BINS, "3");
}

TEST_F(OptionChanges, AllGatesAreTheSectionsAndPlotsAndNothingElse) {
    const Options fresh;
    TickAllGates(dataset, session);
    std::set<std::string_view> keys, controls;
    for (const OptionRow& row : OptionTable()) {
        EXPECT_TRUE(keys.insert(row.key).second && controls.insert(row.control).second) << row.key;
        if (row.role == OptionRole::Gate) {
            EXPECT_EQ(GetOption(options, row), OptionValue{std::int16_t{1}}) << row.key;
        } else {
            EXPECT_EQ(GetOption(options, row), GetOption(fresh, row)) << row.key;
        }
    }
}

TEST_F(OptionChanges, ValuesConvertByTheirForm) {
    const OptionRow& box = OptionOf(&Options::OLS_SLS);
    for (const auto& [text, value] : {std::pair{" 2", 2}, {"1.5", 2}, {"0.5", 0}}) // halves to even
        EXPECT_EQ(ReadOptionValue(box, text), OptionValue{static_cast<std::int16_t>(value)}) << text;
    for (const char* wrong : {"3", "-1", "", "yes", "1e9"})
        EXPECT_FALSE(ReadOptionValue(box, wrong)) << wrong;
    const OptionRow& flag = OptionOf(&Options::LSM);
    EXPECT_EQ(ReadOptionValue(flag, "-1"), OptionValue{true});
    EXPECT_FALSE(ReadOptionValue(flag, "on"));
    EXPECT_EQ(OptionText(*ReadOptionValue(OptionOf(&Options::NOTES_SIZE), "9.75")), " 9.75");
    EXPECT_FALSE(ReadOptionValue(OptionOf(&Options::NOTES_SIZE), "1e39"));
    EXPECT_FALSE(ReadOptionValue(OptionOf(&Options::TRESHOLD_XY), "1\r\nDATA:"));
    EXPECT_FALSE(IsSet(2));
}

} // namespace
} // namespace corvane
