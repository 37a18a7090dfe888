#include "core/report.h"

#include "core/failure.h"

#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace corvane {
namespace {

TEST(Report, FramesSectionsAndEndsLinesWithCrLf) {
    Report report;
    report.Current().Line("header");
    report.BeginSection("one", "FIRST × 1").Line("a = ", F(8, 2, 1.5).Named("a"));
    report.BeginSection("two", "SECOND").OpenLine("no end");
    report.BeginSection("three", "T");
    EXPECT_EQ(report.Text(), "header\r\n"
                             "FIRST × 1\r\n=========\r\na =     1.50\r\n"
                             "\r\n\r\nSECOND\r\n======\r\nno end"
                             "\r\n\r\nT\r\n=\r\n");
    EXPECT_EQ(WithLineFeeds("a\r\nb\rc\n\r\n"), "a\nb\rc\n\n");
}

TEST(Report, AFieldKeepsItsValueThoughItsTextIsRaised) {
    const ReportField field = FP(7, 5, 1e-40).Named("P");
    EXPECT_EQ(field.text, "0.00001");
    EXPECT_EQ(std::get<double>(field.field.value), 1e-40);
    EXPECT_EQ(field.name, "P");
}

TEST(Report, AFieldThatCannotBeFormattedLeavesNoLine) {
    Report report;
    ReportSection& section = report.BeginSection("one", "ONE");
    EXPECT_TRUE(Statement([&] { section.Line("x", F(6, 4, 1.25), F(5, 4, 0.25)); }).has_value());
    EXPECT_TRUE(section.lines.empty());
    EXPECT_EQ(F0(4, 0, 0.0).text, "   0");
    EXPECT_EQ(F(4, 0, 0.0).text, "    ");
}

TEST(Failure, AStatementThatFailsLeavesItsTargetAndTheNextOneRuns) {
    double t = 7, p = 0;
    EXPECT_EQ(Statement([&] { t = Divide(1, 0); }), "division by zero");
    EXPECT_FALSE(Statement([&] { p = Divide(t, 2); }).has_value());
    EXPECT_EQ(t, 7);
    EXPECT_EQ(p, 3.5);
}

TEST(Failure, AConditionThatFailsEntersItsBranch) {
    EXPECT_TRUE(ConditionHolds([] { return Divide(0, 0) > 1; }));
    EXPECT_FALSE(ConditionHolds([] { return Divide(1, 2) > 1; }));
    // Programming errors are not swallowed.
    EXPECT_THROW(Statement([] { throw std::logic_error("bug"); }), std::logic_error);
    EXPECT_THROW(ConditionHolds([]() -> bool { throw std::logic_error("bug"); }), std::logic_error);
}

TEST(Failure, CheckedArithmeticRefusesWhatHasNoFiniteResult) {
    EXPECT_THROW(Divide(1e300, 1e-300), RunFailure);
    EXPECT_THROW(Divide(1, std::numeric_limits<double>::max()), RunFailure);
    EXPECT_THROW(SquareRoot(-1e-300), RunFailure);
    EXPECT_EQ(SquareRoot(0), 0);
    EXPECT_THROW(Logarithm(0), RunFailure);
    EXPECT_THROW(Logarithm(std::numeric_limits<double>::quiet_NaN()), RunFailure);
    EXPECT_EQ(Integer16(2.5), 2);
    EXPECT_THROW(Integer16(32767.5), RunFailure);
    EXPECT_EQ(Integer32(-3.5), -4);
    EXPECT_THROW(Integer32(3e9), RunFailure);
}

} // namespace
} // namespace corvane
