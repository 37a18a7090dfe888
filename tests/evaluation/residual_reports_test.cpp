#include "analyses/residual_plots.h"
#include "evaluation/report_of.h"
#include "support/golden.h"

#include <limits>
#include <tuple>

namespace corvane {
namespace {

using namespace testing;
using Options = AnalysisOptions;
using Strings = std::vector<std::string>;
using NumberPairs = std::vector<std::pair<double, double>>;
constexpr std::int16_t off = 0, on = 1;

/// Files of a full or locked disk.
struct RefusingFiles : MemoryFiles {
    FileResult Create(const std::string&, const std::string&) override {
        return {false, "Permission denied"};
    }
};

class ResidualReports : public ::testing::Test, protected Workbench {
protected:
    ResidualReports() { Only({&Options::RESIDUAL_ANALYSIS}); }
    /// Ticks the listing's columns as told by a "1" in place of each.
    void Choose(const char* columns) {
        for (int i = 0; i < 14; ++i)
            ChangeOption(dataset, session, *FindOption("RESIDUE_" + std::to_string(i + 1)),
                         columns[i] == '1');
    }
    void OpenExample(const std::string& name) {
        Workbench::OpenExample(name).Only({&Options::RESIDUAL_ANALYSIS});
    }
    void Put(const NumberPairs& pairs) {
        dataset.cells.Clear();
        Set({{&Options::N, std::to_string(pairs.size())}});
        std::int32_t row = 0;
        for (const auto& [x, y] : pairs) {
            dataset.cells.Set(ColumnX, ++row, x);
            dataset.cells.Set(ColumnY, row, y);
        }
    }
    /// The report from the residual section on.
    static std::string TextOf(const RunResult& run) {
        const std::string text = run.report.Text();
        return text.substr(std::min(text.size(), text.find("RESIDUAL ANALYSES\r\n")));
    }
    /// A run without a window.
    std::string Text() { return TextOf(Set({{&Options::RESIDUE_WINDOW, off}}).Evaluate()); }
};

TEST_F(ResidualReports, AWindowWithEveryColumnAndTheRegression) {
    OpenExample("mtcars.KOV");
    Choose("11111111111111");
    Set({{&Options::RESIDUAL_REGRESSION_PLOT, on}});
    const RunResult run = Evaluate();
    EXPECT_FALSE(Has(run, "RESID"));
    ASSERT_EQ(run.windows.size(), 1U);
    EXPECT_EQ(run.windows.front().name, "residue");
    EXPECT_EQ(run.windows.front().caption, "Residue Analyses - ");
    ExpectGolden("residual_mtcars.txt", run.windows.front().content.Text());
}

TEST_F(ResidualReports, SwappedInTheReportWithoutComments) {
    OpenExample("mtcars.KOV");
    Set({{&Options::SwapXY, on}, {&Options::ADD_COMMENT, off}, {&Options::RESIDUAL_REGRESSION_PLOT, on}});
    ExpectGolden("residual_swapped.txt", Text());
}

TEST_F(ResidualReports, ATableInAFile) {
    OpenExample("cars.KOV");
    Choose("11111111111111");
    Set({{&Options::RESIDUAL_REGRESSION_PLOT, on},
         {&Options::SAVE_RESIDUE_TEXT, on},
         {&Options::RESIDUE_WINDOW, off}});
    const RunResult run = Evaluate("/out/Residue0000.TXT");
    EXPECT_EQ(run.warnings, Strings{});
    ExpectGolden("residual_cars_file.txt", run.residueText);
    ExpectGolden("residual_cars.txt", TextOf(run));
}

TEST_F(ResidualReports, NoColumn) {
    OpenExample("pearson.KOV");
    Choose("00000000000000");
    Set({{&Options::ADD_COMMENT, off}, {&Options::RESIDUAL_REGRESSION_PLOT, on}});
    ExpectGolden("residual_pearson.txt", Text());
}

TEST_F(ResidualReports, WithoutAPlaceForTheFileTheTableStaysInTheReport) {
    OpenExample("pearson.KOV");
    const std::string whole = Text();
    Set({{&Options::SAVE_RESIDUE_TEXT, on}});
    const RunResult homeless = Evaluate();
    EXPECT_EQ(TextOf(homeless), whole);
    EXPECT_EQ(homeless.residueText, "");
    EXPECT_TRUE(Has(homeless.warnings.at(0), "no residue file was written")) << homeless.warnings[0];
}

const NumberPairs wholeDeviations = {{1, 2}, {2, 1}, {3, 4}, {4, 3}, {5, 7}, {6, 4}};

TEST_F(ResidualReports, StarsAreStrictAndCountOnlyInAColumnThatIsShown) {
    Put(wholeDeviations);
    Set({{&Options::DEVIATION_LOWER, std::string("-2")}, {&Options::DEVIATION_UPPER, std::string("1")}});
    Choose("00100000000000");
    const std::string shown = Text();
    for (const char* line :
         {"  1    1.0000  \r\n  2   -1.0000  \r\n", "  5    2.0000* \r\n  6   -2.0000  \r\n",
          "above the upper acceptance limit :         1 (  16.66667%)\r\n",
          "below the lower acceptance limit :           (   0.00000%)\r\n",
          "\r\nDeviation                               :    1\r\n"})
        EXPECT_TRUE(Has(shown, line)) << shown;
    Choose("11011111111111");
    const std::string hidden = Text();
    EXPECT_TRUE(Has(hidden, "above the upper acceptance limit :           (   0.00000%)\r\n")) << hidden;
    EXPECT_TRUE(Has(hidden, "\r\nDeviation                               :    0\r\n")) << hidden;
}

TEST_F(ResidualReports, LimitsStayForLaterRuns) {
    Put(wholeDeviations);
    Set({{&Options::RESIDUAL_LOWER, std::string("-7")}});
    Evaluate();
    // R 4.2.2: qnorm(0.95) * sqrt(var(y) / 6)
    EXPECT_NEAR(session.DeviationUpper, 1.39247003873, 1e-11);
    EXPECT_EQ(session.DeviationLower, -session.DeviationUpper);
    EXPECT_EQ(std::pair(session.ResidueLower, session.ResidueUpper), std::pair(-7.0, 0.1 * 3.5));
    EXPECT_EQ(std::pair(session.RStdtResLower, session.RStdtResUpper), std::pair(-2.5, 2.5));
    Put({{10, 90}, {20, 20}, {30, 60}, {40, 50}});
    EXPECT_TRUE(Has(Text(), ": [-1.3925, 1.3925]\r\n"));
    EXPECT_EQ(session.ResidueUpper, 0.1 * 3.5);

    Set({{&Options::DEVIATION_CI_PROB, std::string("100")}}); // 1: no finite quantile
    const std::string whole = Text();
    EXPECT_EQ(session.DeviationUpper, 0);
    EXPECT_TRUE(Has(whole, ": [0.0000, 0.0000]\r\n")) << whole;
}

TEST_F(ResidualReports, RowNumbersEndAtThreeDigits) {
    NumberPairs pairs;
    for (int i = 1; i <= 1001; ++i)
        pairs.emplace_back(i % 7, i % 11);
    Put(pairs);
    Choose("10000000000000");
    const std::string text = Text();
    EXPECT_TRUE(Has(text, "\r\n999    5.0000 \r\nn/a    6.0000 \r\nn/a    0.0000 \r\n--------------\r\n"));
}

TEST_F(ResidualReports, DegenerateData) {
    Put({{-1, -2}, {0, 3}, {1, -1}}); // mean of Y 0
    const std::string noMean = Text();
    EXPECT_FALSE(Has(noMean, "of the Mean of Y"));
    EXPECT_TRUE(Has(noMean, "]\r\nApproximate (1 - Alpha), %                             :     95.00\r\n"));

    Put({{1, 3}, {2, 3}, {4, 3}});
    Set({{&Options::RESIDUAL_REGRESSION_PLOT, on}});
    EXPECT_FALSE(Has(Text(), "H0: ")); // no SD

    Put({{1, 2}, {1, 4}, {1, 5}, {9, 7}}); // the last pair alone sets the slope: leverage 1
    Choose("00000010111111");
    // SE Res., StdtRes, RStdtRes, Leverage, Cook'D, DFFITS, PRESS
    EXPECT_TRUE(Has(
        Text(), "\r\n  4    0.0000    0.0000    0.0000     1.0000     0.0000*    0.0000     0.0000 \r\n"));
}

TEST_F(ResidualReports, PlotsComeLastEachAfterItsProgressText) {
    Put(wholeDeviations);
    const auto titles = [](const RunResult& run) {
        Strings names;
        for (const ChartModel& plot : run.plots)
            names.push_back(std::string(NameOf(plot.kind)) + "|" + plot.title + "|" + plot.xAxis.title + "|" +
                            plot.yAxis.title + "|" + plot.footnote);
        return names;
    };
    Set({{&Options::SHOW_RESIDUAL_PLOT, on},
         {&Options::SHOW_DEVIATION_PLOT, on},
         {&Options::SHOW_NORMAL_PLOT, on},
         {&Options::RESIDUAL_REGRESSION_PLOT, on}});
    const RunResult run = Evaluate();
    EXPECT_EQ(progress.stages, (Strings{"Regression...", "Residual analysis...", "Residue regression...",
                                        "Residual plot...", "Deviation plot...", "Normal plot..."}));
    EXPECT_EQ(
        titles(run),
        (Strings{
            "residual|Studentized Residue vs Regression-Predicted|Regression-Predicted|Studentized Residue "
            "(× 120)|n =  6",
            "deviation|Deviation vs Observed|Observed|Deviation|n =  6",
            "normal|Expected Normal Residue vs Residue|Residue|Normal Residue|n =  6",
            "residue|Residue vs Regression-Predicted|Regression-Predicted|Residue|n =  6",
            "deviation_model|Deviation vs Model-Predicted|Model-Predicted|Deviation|n =  6"}));
    EXPECT_EQ(*run.plots[1].series.at(0).x, (std::vector<double>{2, 1, 4, 3, 7, 4}));
    EXPECT_EQ(*run.plots[1].series.at(0).y, (std::vector<double>{1, -1, 1, -1, 2, -2}));
    EXPECT_EQ(*run.plots[4].series.at(0).x, (std::vector<double>{1, 2, 3, 4, 5, 6}));

    Set({{&Options::RESIDUAL_ANALYSIS, off}});
    progress.stages.clear();
    dataset.cells.Set(ColumnExclude, 2, std::string_view("y"));
    const RunResult plotsOnly = Evaluate();
    EXPECT_EQ(progress.stages, (Strings{"Regression..."}));
    EXPECT_EQ(titles(plotsOnly).size(), 2U); // of the residues and the deviations
    for (const ChartModel& plot : plotsOnly.plots)
        EXPECT_EQ(*plot.series.at(0).rows, (std::vector<std::int32_t>{1, 3, 4, 5, 6}));
    EXPECT_TRUE(plotsOnly.windows.empty());
    EXPECT_FALSE(Has(plotsOnly, "RESID"));
}

TEST_F(ResidualReports, TheResidualPlotIsStretchedWhereItIsNarrow) {
    const auto plotOf = [&](double low, double high) {
        RunState run{.snapshot = {dataset, session, {}, 0, {}}, .progress = progress};
        run.arrays.rows = {1, 2, 3};
        run.residuals.RStdtRes = {low, 0.5, high};
        run.residuals.Fitted = {1, 2, 3};
        ResidualPlot.write(run);
        const ChartModel& plot = run.plots.at(0);
        return std::pair(plot.yAxis.title, plot.series.at(0).y->back());
    };
    const double saturated = std::numeric_limits<double>::max();
    for (const auto& [low, high, factor, value] :
         {std::tuple{-2.0, 2.0, " (× 120)", 240.0}, // 12.5 to the even 12
          {-20, 80, "", 80},                        // 0.5 to 0
          {-20, 70, " (× 10)", 700},                // 0.56 to 1
          {0.5, 0.5, "", 0.5},                      // a division by 0
          {0.5, 0.5 + 1e-9, "", 0.5 + 1e-9},        // too large for a count
          {-saturated, saturated, "", saturated}})
        EXPECT_EQ(plotOf(low, high), std::pair(std::string("Studentized Residue") + factor, value));
}

} // namespace
} // namespace corvane
