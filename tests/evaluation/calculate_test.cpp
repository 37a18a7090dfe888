#include "evaluation/calculate.h"

#include "core/format/text_lists.h"
#include "evaluation/report_header.h"
#include "evaluation/report_of.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace corvane {
namespace {

using namespace testing;
using Strings = std::vector<std::string>;

class CalculateRun : public ::testing::Test, protected Workbench {
protected:
    void Put(std::initializer_list<std::array<const char*, 4>> rows) {
        std::int32_t row = 0;
        for (const auto& cells : rows) {
            ++row;
            for (int column = ColumnX; column <= ColumnSDY; ++column)
                dataset.cells.Set(column, row, std::string(cells[static_cast<std::size_t>(column - 1)]));
        }
    }
};

const char* const bothIgnored =
    "Because both uncertainties are being ignored, the Regular Least-Squares Regression will be used";
const char* const zeroSD =
    "Because at least one SD X or SD Y is zero, the Regular Least-Squares Regression will be used";

TEST_F(CalculateRun, EndsWithoutRowsOrDifferencesOrAMethod) {
    Put({{"1", "", "1", ""}, {"2", "", "2.0", ""}});
    EXPECT_EQ(Evaluate().end, RunEnd::TooFewRows);
    EXPECT_TRUE(progress.messages.empty() && progress.stages.empty());
    Put({{"1", "", "1", ""}, {"2", "", "2.0", ""}, {"abc", "", "", ""}});
    EXPECT_EQ(Evaluate().end, RunEnd::IdenticalValues);
    Put({{"1", "", "2", ""}});
    EXPECT_EQ(Set({{&AnalysisOptions::LSM, false}}).Evaluate().end, RunEnd::NoMethod);
    EXPECT_EQ(progress.messages, (Strings{"X and Y values are identical. Computation halted!",
                                          "No option for regression is selected"}));
    EXPECT_EQ(progress.stages.back(), "Regression..."); // the progress text stays
}

TEST_F(CalculateRun, TheMethodCorrectionMovesTheButtonItself) {
    Put({{"1", "1", "2", "1"}, {"2", "1", "3", "1"}, {"4", "1", "4", "1"}});
    Set({{&AnalysisOptions::WLSM, true}});
    EXPECT_TRUE(Has(Evaluate(), "Weighted Least-Squares Regression\r\n\r\n"));
    EXPECT_TRUE(progress.messages.empty());

    Put({{"1", "1", "2", "1"}, {"2", "", "3", "1"}, {"4", "0", "4", "1"}});
    Set({{&AnalysisOptions::UNCERTAINTY_X, std::int16_t{1}}});
    EXPECT_TRUE(Has(Evaluate(), "Weighted Least-Squares Regression\r\nIgnored uncertainties in X\r\n\r\n"));
    EXPECT_TRUE(progress.messages.empty());

    Set({{&AnalysisOptions::UNCERTAINTY_X, std::int16_t{0}}});
    EXPECT_TRUE(Has(Evaluate(), "Regular Least-Squares Regression\r\n\r\n"));
    EXPECT_EQ(progress.messages, Strings{zeroSD});
    EXPECT_TRUE(dataset.options.LSM);

    Set({{&AnalysisOptions::WLSM, true}});
    Set({{&AnalysisOptions::UNCERTAINTY_X, std::int16_t{1}}});
    Set({{&AnalysisOptions::UNCERTAINTY_Y, std::int16_t{1}}});
    EXPECT_TRUE(Has(Evaluate(), "Regular Least-Squares Regression\r\n\r\n"));
    EXPECT_EQ(progress.messages, (Strings{zeroSD, bothIgnored}));
}

TEST_F(CalculateRun, GatesDecideAndProgressIsShown) {
    Put({{"1", "", "2", ""}, {"2", "", "3.5", ""}, {"4", "", "4", ""}});
    for (const OptionRow& row : OptionTable())
        if (row.role == OptionRole::Gate)
            ChangeOption(dataset, session, row, std::int16_t{2}); // ticked grey is not set, but for two
    const RunResult plain = Evaluate();
    EXPECT_EQ(plain.report.Sections().size(), 4U);
    EXPECT_EQ(progress.stages,
              (Strings{"Regression...", "Kleijnen analysis...", "Bland and Altman analysis..."}));

    TickAllGates(dataset, session);
    progress.stages.clear();
    std::vector<std::string> ids;
    const RunResult all = Evaluate();
    for (const ReportSection& section : all.report.Sections())
        if (section.printed)
            ids.push_back(section.id);
    EXPECT_EQ(progress.stages, (Strings{"Regression...",
                                        "Parameters...",
                                        "OLS and SLS...",
                                        "Distribution...",
                                        "Moments...",
                                        "Robust statistics...",
                                        "Mean bias...",
                                        "Index...",
                                        "Concordance...",
                                        "Generalized CCC...",
                                        "Rank analysis...",
                                        "Balance analysis...",
                                        "Orthogonal balance...",
                                        "MSEP analysis...",
                                        "MSEP bootstrap...",
                                        "Kleijnen analysis...",
                                        "Bland and Altman analysis...",
                                        "Threshold analysis...",
                                        "Deviation analysis...",
                                        "Residual analysis...",
                                        "Residue regression...",
                                        "Residual plot...",
                                        "Deviation plot...",
                                        "Normal plot..."}));
    EXPECT_EQ(ids.front(), "header");
    EXPECT_EQ(ids.back(), "references");
    // A plot whose factor cannot be computed is filed under its own name.
    EXPECT_EQ(all.report.Sections().back().id, "residual_plot");
    EXPECT_EQ(all.report.Sections().back().failures.size(), 1U);
}

TEST_F(CalculateRun, TheDeviationConfidenceIsPerCentOrAFraction) {
    Put({{"1", "", "2", ""}, {"2", "", "3.5", ""}, {"4", "", "4", ""}});
    // Without a text it is what the last run left.
    for (const auto& [text, probability] :
         {std::pair{"95", 0.95}, {"0.95", 0.95}, {"0", 0.95}, {"x", 0.95}, {"1", 0.01}, {"", 0.5}}) {
        session.DeviationCIProb = 0.5;
        dataset.options.DEVIATION_CI_PROB = text;
        Evaluate();
        EXPECT_EQ(session.DeviationCIProb, probability) << text;
    }
    EXPECT_EQ(session.MeanY, 9.5 / 3);
}

TEST_F(CalculateRun, AParameterWithoutSDHasNoTestAndNThreeHasOneDegreeOfFreedom) {
    Put({{"1", "", "2", ""}, {"2", "", "2.5", ""}, {"4", "", "3.5", ""}}); // exactly y = 1.5 + x / 2
    const RunResult exact = Evaluate();
    EXPECT_FALSE(Has(exact, "H0: b = 0 "));
    EXPECT_TRUE(Has(exact, "H0: a = 0 & b = 1"));

    Put({{"1", "", "1.1", ""}, {"2", "", "2.3", ""}, {"4", "", "3.7", ""}});
    // R 4.2.2, lm(y ~ x): t of the slope 6.81273, P 0.092783 with 1 degree of freedom.
    EXPECT_TRUE(Has(Evaluate(), "H0: b = 0            T-value (P-value):    6.81273 (0.09278)\r\n"));
}

TEST(ReportHeader, CentresTheNameAndCutsALongOneByCharacters) {
    const ClockTime time = FixedClock().Now();
    const auto line = [](const std::string& before, const std::string& name, const std::string& after) {
        return "KOV v. 4.0.0" + before + "[" + name + "]" + after + "09-Mar-2026 07:05:04";
    };
    const std::string of36(36, ' '), of37(37, ' '), last73 = Repeat("é", 73), of77 = Repeat("é", 77);
    EXPECT_EQ(HeaderLine("d.KOV", time), line(of37, "d.KOV", of37));
    EXPECT_EQ(HeaderLine("", time), line(of36, "UNTITLED", of36));
    EXPECT_EQ(HeaderLine(of77, time), line(" ", of77, " "));
    for (const std::size_t cut : {5U, 17U})
        EXPECT_EQ(HeaderLine(Repeat("x", cut) + last73, time), line(" ", "..." + last73, " "));
}

} // namespace
} // namespace corvane
