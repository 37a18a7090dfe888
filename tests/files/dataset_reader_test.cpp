#include "files/dataset_reader.h"

#include "core/grid_operations.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::MemoryFiles;

struct Loaded {
    Dataset dataset;
    SessionState session;
    LoadOutcome outcome;

    std::string X(std::int32_t row) const { return CellText(dataset.cells.At(ColumnX, row)); }
};

Loaded Load(const std::string& text) {
    MemoryFiles files;
    files.files["d.KOV"] = text;
    Loaded loaded;
    loaded.outcome = LoadFile("d.KOV", loaded.dataset, loaded.session, files);
    return loaded;
}

TEST(GetCodeValue, TheLastDelimiterDecidesAndOneQuoteOrNumberSignGoesAtEachEnd) {
    const auto parse = [](std::string_view line) {
        const CodeValue code = GetCodeValue(line);
        return std::string(code.key) + "|" + std::string(code.value);
    };
    EXPECT_EQ(parse("A=B=C"), "B|C");
    EXPECT_EQ(parse(" key : value "), "key|value");
    EXPECT_EQ(parse("DATA:"), "DATA|");
    EXPECT_EQ(parse("no delimiter"), "|no delimiter");
    EXPECT_EQ(parse("P=##.#000"), "P|#.#000");
    EXPECT_EQ(parse("P=\"text\"#"), "P|text\"");
    EXPECT_EQ(parse("P=#"), "P|");
    EXPECT_EQ(parse(""), "|");
}

TEST(LoadFile, TakesKeysInAnyCaseAndOrderWithAnyLineEnd) {
    const Loaded it =
        Load("2,9,9\nn=3\rols_sls= 2\r\nUNKNOWN=1\nWLSM=True\nR_GRAPHPNG=True\nhist_pie=True\n"
             "GRID_FORMAT_XY=##.#000\nTRESHOLD_XY=a:b\nData:\n1,2,3,4,,,\n\"5,5\",,\"6\"\"\",,,,Y\n"
             "7,,8,,,,\nignored\nNotes:\none\n\ntwo\n");
    ASSERT_TRUE(it.outcome.Complete()) << it.outcome.Error();
    EXPECT_EQ(it.dataset.options.OLS_SLS, 2);
    EXPECT_TRUE(it.dataset.options.WLSM);
    EXPECT_FALSE(it.dataset.options.LSM);
    EXPECT_TRUE(it.dataset.options.R_GraphPNG);
    EXPECT_FALSE(it.dataset.options.R_GraphBMP);
    EXPECT_TRUE(it.dataset.options.HIST_Pie);
    EXPECT_EQ(it.dataset.options.GRID_FORMAT_XY, "#.#000");
    EXPECT_EQ(it.dataset.options.TRESHOLD_XY, ""); // the key of that line is "a"
    EXPECT_EQ(it.dataset.cells.RowCount(), 3);
    EXPECT_EQ(it.X(2), "5,5");
    EXPECT_EQ(CellText(it.dataset.cells.At(ColumnY, 2)), "6\"");
    EXPECT_EQ(CellText(it.dataset.cells.At(ColumnExclude, 2)), "Y");
    EXPECT_EQ(it.dataset.notes, "one\r\n\r\ntwo");
    EXPECT_EQ(it.session.CurrentDatasetName, "d.KOV");
}

TEST(LoadFile, ThreeKeysAreNeverMatched) {
    const Loaded it =
        Load("4,0,0\nPLOT_YX= 0\nNoSound= 1\nNOSOUND= 1\nSAVE_RESIDUE_TEXT= 1\nSHOW_EXCLUDED= 1\n");
    ASSERT_TRUE(it.outcome.Complete());
    EXPECT_EQ(it.dataset.options.PLOT_YX, 1);
    EXPECT_EQ(it.dataset.options.NoSound, 0);
    EXPECT_EQ(it.dataset.options.SAVE_RESIDUE_TEXT, 0);
    EXPECT_EQ(it.dataset.options.SHOW_EXCLUDED, 1);
}

TEST(LoadFile, FieldsRunOverLineEndsAndTheCountDecides) {
    const Loaded it = Load("4,0,0\nN=2\nDATA:\n1,2,3\n4,5,6,7,\"8\"\n9\n10,11,12,13\n14,15\n");
    ASSERT_TRUE(it.outcome.Complete()) << it.outcome.Error();
    EXPECT_EQ(it.X(2), "8");
    EXPECT_EQ(CellText(it.dataset.cells.At(ColumnExclude, 2)), "14");
}

TEST(LoadFile, ExplicitDeviationLimitsStandOnlyBesideAProbabilityOfZero) {
    const std::string limits = "4,0,0\nDEVIATION_LOWER=-1\nDEVIATION_UPPER=2\nRESIDUAL_LOWER=-5\n";
    const Loaded kept = Load(limits + "DEVIATION_CI_PROB=0\n");
    EXPECT_EQ(kept.session.DeviationUpper, 2);
    EXPECT_EQ(kept.session.ResidueLower, -5);
    const Loaded dropped = Load(limits + "DEVIATION_CI_PROB=95\n");
    EXPECT_EQ(dropped.session.DeviationUpper, 0);
    EXPECT_EQ(dropped.dataset.options.DEVIATION_LOWER, "0");
}

TEST(LoadFile, ARefusedFileLeavesTheDatasetOnScreen) {
    MemoryFiles files;
    files.files = {{"old", "1,0,0\nOLS_SLS= 1\n"},
                   {"text", "Dear reader,\n"},
                   {"empty", ""},
                   {"half", "4,0\n"},
                   {"picture", std::string("\x89PNG\r\n\x1A\n\0\0", 10)},
                   {"later", "9,0,0\nOLS_SLS= 1\n"}};
    Dataset dataset;
    SessionState session;
    session.CurrentDatasetName = "before";
    dataset.cells.Set(ColumnX, 1, std::string("1"));
    for (const char* name : {"old", "text", "empty", "half", "picture", "missing"}) {
        const LoadOutcome outcome = LoadFile(name, dataset, session, files);
        EXPECT_EQ(outcome.state, std::string(name) == "old" ? LoadState::OldVersion : LoadState::Refused)
            << name;
        EXPECT_FALSE(outcome.reason.empty());
        EXPECT_EQ(dataset.options.OLS_SLS, 0) << name;
        EXPECT_EQ(dataset.cells.LastFilledRow(), 1) << name;
        EXPECT_EQ(session.CurrentDatasetName, "before") << name;
    }
    EXPECT_EQ(LoadFile("old", dataset, session, files).reason, OldVersionMessage);
    EXPECT_TRUE(LoadFile("later", dataset, session, files).Complete());
    EXPECT_EQ(dataset.options.OLS_SLS, 1);
    EXPECT_EQ(dataset.cells.LastFilledRow(), 0);
}

TEST(LoadFile, WhatWasAssignedBeforeAFailureStays) {
    const Loaded box = Load("4,0,0\nOLS_SLS= 1\nGENERAL_CCC=maybe\nINDEX_ANALYSIS= 1\n");
    EXPECT_EQ(box.outcome.Error(), "d.KOV:3: GENERAL_CCC is 'maybe', not 0, 1 or 2");
    EXPECT_EQ(box.dataset.options.OLS_SLS, 1);
    EXPECT_EQ(box.dataset.options.INDEX_ANALYSIS, 0);

    const Loaded noLineEnd =
        Load("4,0,0\nN=2\nDATA:\n1,,2,,,,\n3,,4,,,,"); // the last field is there, and empty
    EXPECT_TRUE(noLineEnd.outcome.Complete());
    const Loaded tabs = Load("4,0,0\nN=2\nDATA:\n\t\"1,5\",\"\", \t \"2\"\t,\"\",,,\n\t3,,4,,,,\n");
    EXPECT_EQ(tabs.X(1), "1,5");
    EXPECT_EQ(tabs.X(2), "\t3"); // without quotes a tab is text
    const Loaded cut = Load("4,0,0\nN=5\nDATA:\n1,,2,,,,\n3,,4,,");
    EXPECT_EQ(cut.outcome.Error(), "d.KOV:5: the file ends in row 2 of the 5 that N announces");
    EXPECT_EQ(cut.X(2), "3");
}

TEST(LoadFile, BadInputNeitherHangsNorTakesMemory) {
    const Loaded huge = Load("4,0,0\nN=1000000000\nDATA:\n1,,2,,,,\n");
    EXPECT_EQ(huge.outcome.state, LoadState::Partial);
    EXPECT_EQ(huge.dataset.cells.RowCount(), 1000000000);
    EXPECT_EQ(huge.X(1), "1");
    EXPECT_EQ(Load("4,0,0\nN=99999999999\n").outcome.line, 2U);

    const Loaded negative = Load("4,0,0\nN=-1\nDATA:\nNOTES:\nx\n");
    EXPECT_TRUE(negative.outcome.Complete());
    EXPECT_EQ(negative.outcome.tooFewRowsLine, 2U);
    EXPECT_EQ(negative.dataset.notes, "x");

    const Loaded nul = Load(std::string("4,0,0\nN=2\nDATA:\n\"1\0\",,2,,,,\n\"\n", 30));
    EXPECT_EQ(nul.outcome.state, LoadState::Partial);
    EXPECT_EQ(nul.X(1), std::string("1\0", 2));

    const Loaded line = Load("4,0,0\nTRESHOLD_XY=" + std::string(30'000'000, 'x') +
                             "\nN=" + std::string(1'000'000, '1') + "\n");
    EXPECT_EQ(line.dataset.options.TRESHOLD_XY.size(), 30'000'000U);
    EXPECT_LT(line.outcome.Error().size(), 200U);
}

} // namespace
} // namespace corvane
