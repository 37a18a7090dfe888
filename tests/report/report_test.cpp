#include "report/json_renderer.h"
#include "report/text_renderer.h"

#include "core/format/failure.h"

#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"a", "", "a = ", 8, 2},
    {"P", "", " P = ", 7, 5, Look::Probability},
    {"count", "", "count", 4, 0, Look::LeadingZero},
    {"*.b", "", "b ", 4, 0},
    {"limit", "", "[", 10, 2, Look::Trimmed},
    {"narrow", "", "", 5, 4},
};

TEST(Report, FramesSectionsAndEndsLinesWithCrLf) {
    Report report;
    report.Current().Text("header");
    ReportSection& first = report.BeginSection({"one", "FIRST × 1", {places}});
    first.Row({{"a", 1.5}});
    first.Heading("Größe");
    report.BeginSection({"two", "SECOND"}).Note("no end", LineEnd::Open);
    report.FileFailure("unseen", "it failed before its title");
    report.BeginSection({"three", "T"}).Rule(2, '*');
    EXPECT_EQ(report.Text(), "header\r\n"
                             "FIRST × 1\r\n=========\r\na =     1.50\r\nGröße\r\n-----\r\n"
                             "\r\n\r\nSECOND\r\n======\r\nno end"
                             "\r\n\r\nT\r\n=\r\n**\r\n");
    EXPECT_EQ(WithLineFeeds("a\r\nb\rc\n\r\n"), "a\nb\rc\n\n");
}

TEST(Report, AFieldKeepsItsValueAndKnowsItsPlaceInTheText) {
    Report report;
    ReportSection& section = report.BeginSection({"one", "µ", {places}});
    section.Row({{"a", 1.5}, {"P", 1e-40}});
    section.Row({"± ", RowItem("limit", 2.0).Between(1, 3), "]"});
    section.Row({RowItem("*.b", 123456.0, "X")});
    const ReportLayout layout = LayOut(report);
    ASSERT_EQ(layout.fields.size(), 4U);
    const ReportField& P = *layout.fields[1].field;
    EXPECT_EQ(P.text, "0.00001");
    EXPECT_EQ(std::get<double>(P.field.value), 1e-40);
    EXPECT_TRUE(P.shown);
    EXPECT_EQ(layout.fields[1].line, 2U);
    EXPECT_EQ(layout.fields[1].column, 17U);
    EXPECT_EQ(layout.fields[2].column, 3U);
    EXPECT_EQ(layout.fields[2].field->text, "2.00");
    EXPECT_EQ(layout.fields[2].field->interval->upper, 3);
    EXPECT_EQ(layout.fields[3].field->name, "X.b");
    EXPECT_FALSE(layout.fields[3].field->shown);
}

TEST(Report, AValueThatNoLineShowsIsInTheJsonAlone) {
    Report report;
    ReportSection& section = report.BeginSection({"one", "ONE", {places}});
    section.Row({{"a", 1.5}});
    section.Value({"*.b", 123456.25, "X"});
    EXPECT_EQ(report.Text(), "ONE\r\n===\r\na =     1.50\r\n");
    EXPECT_EQ(LayOut(report).fields.size(), 1U);
    Json sections = Json::object();
    AddSections(sections, report);
    EXPECT_EQ(sections["one"]["values"].dump(), R"({"a":1.5,"X.b":123456.25})");
    EXPECT_EQ(sections["one"]["not_shown"], Json{"X.b"});
    EXPECT_EQ(sections["one"]["lines"], Json{"a =     1.50"});
}

TEST(Report, TextLongerThanItsBufferComesWhole) {
    Report report;
    ReportSection& section = report.BeginSection({"one", "ONE", {places}});
    std::string expected = "ONE\r\n===\r\n";
    for (int i = 0; i < 9000; ++i) {
        section.Row({{"a", static_cast<double>(i)}});
        std::array<char, 32> line{};
        std::snprintf(line.data(), line.size(), "a = %8.2f\r\n", static_cast<double>(i));
        expected += line.data();
    }
    EXPECT_EQ(report.Text(), expected);
    EXPECT_EQ(LayOut(report).fields.back().line, 9001U);
}

TEST(Report, AFieldThatCannotBeFormattedLeavesNoLine) {
    Report report;
    ReportSection& section = report.BeginSection({"one", "ONE", {places}});
    EXPECT_TRUE(Statement([&] { section.Row({{"a", 1.25}, {"narrow", 0.25}}); }).has_value());
    EXPECT_TRUE(section.lines.empty());
    EXPECT_EQ(section.Shown("count", 0.0), "   0");
    EXPECT_EQ(section.Shown("*.b", 0.0), "    ");
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
