#include "core/report.h"

#include "core/failure.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace corvane
