#include "comparison/comparison_report.h"

#include "core/format/numbers.h"
#include "support/fakes.h"
#include "support/golden.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>
#include <stop_token>

namespace corvane {
namespace {

using namespace testing;
using Strings = std::vector<std::string>;

/// Comparisons of files in memory.
class Comparing : public ::testing::Test {
protected:
    /// A dataset file of rows; its name becomes a ticked row of the list.
    void AddFile(const std::string& name, const Strings& rows, const std::string& header = "") {
        std::string& text = files.files["/models/" + name];
        text = "4,0,0\r\n" + (header.empty() ? "n=" + std::to_string(rows.size()) + "\r\ndata:\r\n" : header);
        for (const std::string& row : rows)
            text += row + "\r\n";
        list.Add(Strings{"/models/" + name});
        list.Select(list.Rows().size() - 1, true);
    }
    /// Pairs of predictions and observations.
    void AddModel(const std::string& name, const Strings& X, const Strings& Y) {
        Strings rows;
        for (std::size_t i = 0; i < Y.size(); ++i)
            rows.push_back("\"" + X[i] + "\",\"\",\"" + Y[i] + "\",\"\",\"\",\"\",\"y\"");
        AddFile(name + ".KOV", rows);
    }
    /// Models of the fuel consumption of 32 cars, by the names of their columns.
    void AddCars(const Strings& columns, std::size_t rows = 32) {
        std::istringstream table(ReadBytes(std::string(CORVANE_TEST_DATA) + "/mtcars_models.csv"));
        std::vector<Strings> cells(5);
        Strings names;
        std::string line, cell;
        while (std::getline(table, line)) {
            std::istringstream fields(line);
            for (Strings& column : cells) {
                std::getline(fields, cell, ',');
                column.push_back(cell);
            }
        }
        const auto column = [&](const std::string& name) {
            for (const Strings& found : cells)
                if (found.front() == name)
                    return Strings(found.begin() + 1, found.begin() + 1 + static_cast<std::ptrdiff_t>(rows));
            ADD_FAILURE() << name;
            return Strings();
        };
        Strings observed = column("y");
        if (rows == 8)
            observed[6] = "";
        for (const std::string& name : columns)
            AddModel(name, column(name.substr(0, name.find('-'))), observed);
    }
    const ComparisonResult& Compare(bool references = false) {
        progress = {};
        result = CompareModels({list.Rows(), list.settings, references, clock.Now()}, files, progress);
        list.settings = result.settings;
        return result;
    }
    std::string Text() { return result.report.Text(); }
    /// A number of the report by the names of its section and field.
    double Value(const std::string& section, const std::string& name) {
        for (const ReportSection& found : result.report.Sections())
            for (const ReportLine& line : found.lines)
                for (const ReportPiece& piece : line.pieces)
                    if (found.id == section && piece.field && piece.field->name == name)
                        return std::get<double>(piece.field->field.value);
        ADD_FAILURE() << section << "." << name;
        return 0;
    }
    void ExpectFault(const std::string& part) {
        Compare();
        EXPECT_FALSE(result.finished);
        EXPECT_NE(result.fault.find(part), std::string::npos) << result.fault;
        EXPECT_EQ(Text(), "");
        list = {};
    }

    MemoryFiles files;
    RecordingProgress progress;
    FixedClock clock;
    ComparisonList list;
    ComparisonResult result;
    const Strings X{"1", "2", "3", "4", "5"}, W{"1.5", "2", "2.5", "4", "6"},
        Y{"1.1", "2.3", "2.9", "4.2", "4.8"};
};

TEST_F(Comparing, TwoModelsBehindAnUnselectedRow) {
    AddCars({"hp", "wt_hp", "against"});
    list.Select(0, false);
    Compare();
    ExpectGolden("compare_two.txt", Text());
    EXPECT_EQ(result.models.front().tag, "2");
    EXPECT_EQ(Value("adequacy", "best_MSEP"), 1);
    EXPECT_EQ(result.warnings, Strings());
}

TEST_F(Comparing, ThreeModelsWithSettingsOutOfRangeAndReferences) {
    AddCars({"wt_hp", "wt", "hp"});
    list.settings = {"9", "5", "-1", "-2", "-3"};
    Compare(true);
    ExpectGolden("compare_three.txt", Text());
    EXPECT_EQ(result.warnings,
              (Strings{"long digits: 9 is below 10; 12 is used", "short digits: 5 is below 6; 9 is used"}));
    EXPECT_EQ(list.settings.DigitsLong + list.settings.DigitsShort + list.settings.DecimalsStatistics,
              "129-1");
    for (const char* digits : {"10", "20"}) {
        list.settings.DigitsLong = digits;
        EXPECT_EQ(Compare().warnings, Strings());
    }
    list.settings.DigitsLong = "21";
    EXPECT_EQ(Compare().warnings, Strings{"long digits: 21 is above 20; 12 is used"});
}

TEST_F(Comparing, FiveModelsTwoOfThemAlikeInNarrowColumns) {
    AddCars({"hp", "wt_hp", "wt_hp-again", "against", "wt"});
    list.settings = {"10", "6", "2", "20", "3"};
    Compare();
    ExpectGolden("compare_five.txt", Text());
    EXPECT_EQ(Value("adequacy", "best_CD"), 2); // the first of the two
    EXPECT_EQ(Value("pairwise_msep", "SE_2_3"), 0);
    EXPECT_EQ(Value("pairwise_msep", "P_2_3"), 1);
    EXPECT_EQ(Value("delta_aic", "ratio_2_3"), 1);
    EXPECT_EQ(Value("delta_aic", "favoured_2_3"), 2);
}

/// Rows 7 and 8 of 8: the first model has a pair of zeros in row 7, the second loses that, too.
TEST_F(Comparing, ABlankRowCountsAsZerosAndCutsTheEnd) {
    AddCars({"wt", "hp"}, 8);
    Compare();
    ExpectGolden("compare_blank.txt", Text());
    EXPECT_EQ(result.rows, 6U);
    list = {};
    Strings blank = Y;
    blank[2] = "";
    blank.insert(blank.end(), {"5.5", "6.5", "7.5"});
    const Strings eight{"1", "2", "3", "4", "5", "6", "7", "9"};
    AddModel("a", eight, blank);
    AddModel("b", eight, blank);
    ExpectFault("/models/a.KOV: row 3 has no observed value");
}

TEST_F(Comparing, InformationCriteriaAtTheirLimits) {
    Strings y = Y;
    y[4] = "";
    AddModel("a", X, y);
    AddModel("b", W, y);
    ExpectFault("/models/a.KOV: 4 observed values are in use");
    y[3] = "";
    AddModel("a", X, y);
    AddModel("b", W, y);
    EXPECT_TRUE(Compare().finished) << result.fault;
    for (const char* name : {"AIC_1", "AICc_1", "AICcPrime_2"})
        EXPECT_EQ(Value("adequacy", name), 0);

    list = {}; // Y = 1 + 2 X: no error is left, although the model is poor
    AddModel("line", X, {"3", "5", "7", "9", "11"});
    AddModel("other", W, {"3", "5", "7", "9", "11"});
    EXPECT_TRUE(Compare().finished) << result.fault;
    EXPECT_EQ(Value("adequacy", "AIC_1") + Value("adequacy", "AICc_1") + Value("adequacy", "AICcPrime_1"), 0);
    EXPECT_NE(Value("adequacy", "AIC_2"), 0);
}

/// A weight too small for a double leaves no ratio, whichever of the models is the better one.
TEST_F(Comparing, FarApartModels) {
    Strings y, fine, coarse;
    for (int i = 0; i < 60; ++i) {
        const double value = i + std::sin(i), noise = std::cos(7 * i);
        y.push_back(NumberText(value));
        fine.push_back(NumberText(value + 1e-8 * noise));
        coarse.push_back(NumberText(value + 10 * noise));
    }
    AddModel("coarse", coarse, y);
    AddModel("fine", fine, y);
    EXPECT_TRUE(Compare().finished) << result.fault;
    EXPECT_LT(Value("delta_aic", "DAIC_1_2"), -1500);
    EXPECT_EQ(Value("delta_aic", "P_1_2"), 1);
    EXPECT_NE(Text().find(".Model  2 is >10000 times more likely to be correct than model  1\r\n"),
              std::string::npos);
    list.SetCurrent(0);
    list.MoveDown();
    EXPECT_TRUE(Compare().finished) << result.fault;
    EXPECT_EQ(Value("delta_aic", "P_1_2"), 0);
    EXPECT_NE(Text().find(".Model  1 is >10000 times more likely to be correct than model  2\r\n"),
              std::string::npos);
}

/// Predictions Y + c z, z orthogonal to Y and as long, leave SSE = S c²/(1 + c²) of S, and the AICs of six
/// pairs differ by 6 times the logarithm of their ratio: against c = 1 the likelihood ratio is
/// ((1 + c²)/(2 c²))³.
TEST_F(Comparing, ALikelihoodRatioIsShownUpTo9999) {
    const double y[] = {1, -1, 2, -2, 0, 0}, z[] = {2, -2, -1, 1, 0, 0};
    for (const double ratio : {9990.0, 9999.5, 11000.0}) {
        const double c = 1 / std::sqrt(2 * std::cbrt(ratio) - 1);
        Strings observed, fine, coarse;
        for (std::size_t i = 0; i < 6; ++i) {
            observed.push_back(NumberText(10 + y[i]));
            fine.push_back(NumberText(10 + y[i] + c * z[i]));
            coarse.push_back(NumberText(10 + y[i] + z[i]));
        }
        list = {};
        AddModel("coarse", coarse, observed);
        AddModel("fine", fine, observed);
        EXPECT_TRUE(Compare().finished) << result.fault;
        EXPECT_EQ(Text().find(".Model  2 is >10000 times") != std::string::npos, ratio > 9999) << Text();
        if (ratio < 9999) {
            EXPECT_NEAR(Value("delta_aic", "ratio_1_2"), ratio, 1e-6);
        }
    }
}

/// Squares of such data are out of a double's range; what has no unit is as it was.
TEST_F(Comparing, TheUnitOfTheDataDoesNotMatter) {
    const std::pair<const char*, const char*> unitless[] = {{"adequacy", "CCC_1"},
                                                            {"adequacy", "MEF_2"},
                                                            {"correlations", "CCC_1_2"},
                                                            {"correlations", "P_r_1_2"},
                                                            {"correlations", "P_CCC_1_2"},
                                                            {"pairwise_msep", "P_1_2"},
                                                            {"deviation_correlations", "Corr_1_2"},
                                                            {"delta_aic", "DAIC_1_2"},
                                                            {"delta_aic", "P_1_2"}};
    std::vector<double> wanted;
    for (const char* power : {"", "e155", "e-155", "e300", "e-300", "e307"}) {
        const auto scaled = [&](Strings values) {
            for (std::string& value : values)
                value += power;
            return values;
        };
        list = {};
        AddModel("a", scaled(X), scaled(Y));
        AddModel("b", scaled(W), scaled(Y));
        ASSERT_TRUE(Compare().finished) << power << " " << result.fault;
        for (std::size_t i = 0; i < std::size(unitless); ++i) {
            const double value = Value(unitless[i].first, unitless[i].second);
            if (*power == '\0')
                wanted.push_back(value);
            EXPECT_NEAR(value, wanted[i], 1e-9) << unitless[i].second << " " << power;
        }
    }
}

/// Where a value is in its table, and whose it is.
TEST_F(Comparing, TablesKnowTheirColumns) {
    AddCars({"hp", "wt_hp", "against", "wt"});
    list.Select(1, false);
    Compare(true);
    std::size_t places = 0;
    for (const ReportSection& section : result.report.Sections())
        for (const ReportLine& line : section.lines) {
            std::size_t column = line.firstColumn;
            for (const ReportPiece& piece : line.pieces) {
                if (!piece.field || line.kind != LineKind::TableRow)
                    continue;
                const auto& titles = section.tables[line.table].columns;
                ASSERT_LT(column, titles.size()) << section.id;
                const std::string& title = titles[column++];
                const std::string& name = piece.field->name;
                if (section.id != "adequacy")
                    EXPECT_TRUE(name.ends_with("_" + title)) << section.id << "." << name;
                else if (line.firstColumn == 3)
                    EXPECT_EQ(name == "best_CD", title == "CD") << name;
                else
                    EXPECT_EQ(name.starts_with("CCC_"), title == "CCC") << name;
                ++places;
            }
        }
    EXPECT_EQ(places, 3 + 3 * 13 + 10 + 3 * (5 + 3 + 2 + 2)); // three models, three pairs
    std::vector<std::string_view> ids{"header"};
    for (const SectionDefinition* section : ComparisonSections())
        ids.push_back(section->frame.id);
    EXPECT_TRUE(std::ranges::equal(ids, result.report.Sections(), {}, {}, &ReportSection::id));
}

TEST_F(Comparing, TellsItsStagesAndEndsWhereItIsStopped) {
    AddModel("a", X, Y);
    AddModel("b", W, Y);
    list.settings.DigitsLong = "9";
    const ComparisonSnapshot snapshot{list.Rows(), list.settings};
    Compare();
    EXPECT_EQ(progress.stages, (Strings{"Reading a.KOV...", "Reading b.KOV...", "Correlations...",
                                        "Squared errors...", "Deviations..."}));
    EXPECT_EQ(progress.shares.size(), 2U + 2U + 4U); // files, models, and a pair in four tables
    EXPECT_EQ(progress.shares.back(), 1);

    struct Stopping : RecordingProgress {
        void ShowShare(double share) override {
            RecordingProgress::ShowShare(share);
            if (shares.size() == after)
                source.request_stop();
        }
        std::size_t after = 0;
        std::stop_source source;
    };
    for (std::size_t after = 1; after <= 8; ++after) {
        Stopping stopping;
        stopping.after = after;
        const ComparisonResult ended = CompareModels(snapshot, files, stopping, stopping.source.get_token());
        EXPECT_TRUE(ended.cancelled && !ended.finished) << after;
        EXPECT_EQ(stopping.shares.size(), after);
        EXPECT_EQ(ended.settings.DigitsLong, "9");
        EXPECT_TRUE(ended.warnings.empty() && ended.models.empty() && ended.report.Text().empty());
    }
}

TEST_F(Comparing, ObservationsAreComparedAsText) {
    AddModel("other", W, Y);
    AddModel("a", X, Y);
    AddModel("b", W, {"1.1", "2.30", "2.9", "4.2", "4.8"});
    ExpectFault("/models/b.KOV:5: row 2: Y is '2.30', and '2.3' in a file before it");
    EXPECT_EQ(progress.messages,
              Strings{"Observed values have to be identical!\r\n\r\nPlease check observed value #2 of "
                      "file '/models/b.KOV'\r\n\r\nCalculation aborted!"});
    EXPECT_EQ(progress.titles, Strings{"Model Comparison"});
    EXPECT_EQ(result.messages, progress.messages);
    AddModel("other", W, Y); // an unselected row ahead: the message names the row at the ordinal
    AddModel("a", X, Y);
    AddModel("same", Y, Y);
    list.Select(0, false);
    ExpectFault("/models/same.KOV: every X equals its Y");
    EXPECT_EQ(progress.messages,
              Strings{"X and Y values are identical for '/models/a.KOV'. Computation halted!"});
    AddModel("same", Y, Y);
    AddModel("a", X, Y);
    ExpectFault("");
    EXPECT_EQ(result.fault, ""); // the message said it all
}

TEST_F(Comparing, ALargerNDiscardsWhatWasRead) {
    AddModel("a", X, Y);
    Strings rows;
    for (int i = 1; i <= 8; ++i)
        rows.push_back(std::to_string(i) + ",,9.5" + std::to_string(i) +
                       ",,,,"); // other observations: none is left
    AddFile("b.KOV", rows);
    ExpectFault(
        "/models/a.KOV: row 1 has no prediction: its rows were given up for the larger N of /models/b.KOV");
    AddFile("b.KOV", rows);
    AddModel("a", {"1", "2", "3", "4", "5"}, {"9.51", "9.52", "9.53", "9.54", "9.55"});
    ExpectFault("/models/a.KOV:9: the data end in row 6 of the 8 that are compared");
}

TEST_F(Comparing, BrokenFilesAreNamedWithTheirLine) {
    const auto with = [&](const std::string& part) {
        AddModel("a", X, Y);
        ExpectFault(part);
    };
    AddModel("bad", {"1", "x", "3", "4", "5"}, Y);
    with("/models/bad.KOV:5: row 2: X is 'x', not a number");
    AddModel("four", {"1", "2", "3", "4"}, {"1.1", "2.3", "2.9", "4.2"});
    with("/models/four.KOV:8: the data end in row 5; a comparison needs at least 5 data rows");
    AddFile("notes.KOV",
            {"1,,1.1,,,,", "2,,2.3,,,,", "3,,2.9,,,,", "4,,4.2,,,,", "NOTES:", "so many", "lines", "1", "2",
             "3", "4", "5"},
            "N=4\r\nDATA:\r\n");
    with("/models/notes.KOV:8: the data end in row 5; a comparison needs at least 5 data rows");
    AddFile("much.KOV", {}, "N=1e12\r\nDATA:\r\n");
    with("/models/much.KOV:2: N is 1000000000000, more rows than can be counted");
    AddFile("word.KOV", {}, "N=ten\r\nDATA:\r\n");
    with("/models/word.KOV:2: N is 'ten', not a number");
    AddFile("huge.KOV", {"1,,1.1,,,,"}, "N=2000000000\r\nDATA:\r\n");
    with("/models/huge.KOV:5: the data end in row 2 of the 2000000000 that are compared");
    AddFile("nodata.KOV", {}, "N=5\r\n");
    with("/models/nodata.KOV: the file has no line \"DATA:\"");
    list.Add(Strings{"/models/gone.KOV"});
    list.Select(0, true);
    with("/models/gone.KOV: No such file or directory");
    AddModel("words", X, {"1.1", "two", "2.9", "4.2", "4.8"});
    AddModel("more", W, {"1.1", "two", "2.9", "4.2", "4.8"});
    ExpectFault("/models/words.KOV:5: row 2: Y is 'two', not a number");
}

TEST_F(Comparing, SettingsAndSelectionThatDoNotServe) {
    AddModel("a", X, Y);
    Compare();
    EXPECT_EQ(progress.messages, Strings{"At least two files have to be selected for comparison"});
    EXPECT_EQ(result.fault, "");
    AddModel("b", W, Y);
    list.settings.DigitsShort = "nine";
    ExpectFault("short digits is 'nine', not a whole number");
    AddModel("a", {"2", "4", "6", "8", "10"}, {"1", "2", "2.9", "4.1", "5"}); // r² = .99..., in six places
    AddModel("b", W, {"1", "2", "2.9", "4.1", "5"});
    list.settings = {"12", "6", "4", "3", "5"};
    ExpectFault("/models/a.KOV: r²: 0.99");
    EXPECT_NE(result.fault.find("does not fit a field of width 6 with 5 decimals"), std::string::npos);
    AddModel("a", X, Y);
    AddModel("b", W, Y);
    list.settings = {"20", "20", "4", "3", "7"};
    ExpectFault("/models/a.KOV and /models/b.KOV: r of Correlation Coefficient Analysis: ");
    AddModel("a", X, Y);
    AddModel("b", W, Y);
    list.settings = {"20", "20", "4", "7", "2"};
    ExpectFault("/models/a.KOV and /models/b.KOV: P-value of Correlation Coefficient Analysis: ");
}

} // namespace
} // namespace corvane
