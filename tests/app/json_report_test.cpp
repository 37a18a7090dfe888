#include "app/json_report.h"

#include "core/format/text_lists.h"
#include "evaluation/report_of.h"
#include "support/golden.h"

#include "report/text_renderer.h"
#include <algorithm>
#include <bit>
#include <cmath>

#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

namespace corvane {
namespace {

using Json = nlohmann::ordered_json;
using Strings = std::vector<std::string>;

/// A run with every gate ticked, and its JSON.
struct FullRun : testing::Workbench {
    explicit FullRun(const Workbench& opened) : Workbench(opened) {
        TickAllGates(dataset, session);
        result = Evaluate();
        EXPECT_EQ(result.end, RunEnd::Finished);
        json = Json::parse(JsonReport({dataset, session, result, "file", progress.messages}));
    }
    const Json& Section(const char* id) const { return json.at("sections").at(id); }

    RunResult result;
    Json json;
};

FullRun Example(const char* name) {
    return FullRun(testing::Workbench().OpenExample(name));
}

FullRun FourPoints(const testing::TextPairs& pairs) {
    return FullRun(testing::Workbench().OpenPairs("points.KOV", pairs));
}

/// Points exactly on y = 1.5 + x / 2: statistics saturate and print as "n/a", whole lines fail.
FullRun ExactLine() {
    return FourPoints({{"1", "2"}, {"2", "2.5"}, {"4", "3.5"}, {"8", "5.5"}});
}

/// Y = 6 - X about the same mean: concordance limits saturate, in places without blanks.
FullRun PerfectDisagreement() {
    return FourPoints({{"1", "5"}, {"2", "4"}, {"4", "2"}, {"5", "1"}});
}

/// What the published schema finds wrong; empty for a valid document.
Strings SchemaErrors(const Json& document) {
    valijson::Schema schema;
    const auto rules =
        nlohmann::json::parse(testing::ReadBytes(std::string(CORVANE_DOCS) + "/report.schema.json"));
    const nlohmann::json copy = document;
    valijson::SchemaParser().populateSchema(valijson::adapters::NlohmannJsonAdapter(rules), schema);
    valijson::ValidationResults results;
    valijson::Validator().validate(schema, valijson::adapters::NlohmannJsonAdapter(copy), &results);
    Strings errors;
    for (const auto& error : results)
        errors.push_back(error.description);
    return errors;
}

/// The schema finds something wrong after each of these changes to a document.
void ExpectRefused(const Json& document, std::initializer_list<const char*> changes) {
    for (const char* change : changes)
        EXPECT_NE(SchemaErrors(document.patch(Json::array({Json::parse(change)}))), Strings{}) << change;
}

/// What the text says of a number must be within half a unit of its last place.
void ExpectShownValue(const ReportField& shown, double value) {
    const double unit = std::pow(10.0, -shown.field.decimals);
    const bool raised = shown.field.probability && value < unit;
    const double read = std::strtod(shown.text.c_str(), nullptr);
    EXPECT_NEAR(read, raised ? value + unit : value, 0.5000001 * unit + 1e-15 * std::abs(value))
        << shown.name;
}

/// Every field is in the JSON under a name of its own, as the very double; the lines make up the report.
void ExpectSameAsReport(const Json& document, const Report& report) {
    std::string text;
    for (const ReportSection& section : report.Sections()) {
        const Json& json = document.at("sections").at(section.id);
        const Strings notShown = json.at("not_shown");
        std::size_t fields = section.unprinted.size();
        for (const ReportLine& line : section.lines)
            for (const ReportPiece& piece : line.pieces) {
                if (!piece.field)
                    continue;
                const ReportField& shown = *piece.field;
                const auto* number = std::get_if<double>(&shown.field.value);
                ++fields;
                ASSERT_NE(shown.name, "") << section.id << ": " << line.Text();
                const Json& value = json.at("values").at(shown.name);
                if (!number)
                    continue;
                const bool hidden = shown.text.find("n/a") != std::string::npos;
                EXPECT_EQ(std::ranges::count(notShown, shown.name), hidden ? 1 : 0) << shown.name;
                EXPECT_EQ(std::bit_cast<std::uint64_t>(value.get<double>()),
                          std::bit_cast<std::uint64_t>(*number));
                if (!hidden)
                    ExpectShownValue(shown, value);
            }
        EXPECT_EQ(json.at("values").size(), fields) << "a name occurs twice in " << section.id;
        Strings reasons;
        for (const Json& failure : json.at("failures"))
            reasons.push_back(failure.at("reason"));
        EXPECT_EQ(reasons, section.failures);

        const std::string title = json.at("title");
        if (!title.empty())
            text += (text.find("===") == std::string::npos ? "" : "\n\n") + title + "\n" +
                    std::string(CharacterCount(title), '=') + "\n";
        for (const Json& line : json.at("lines"))
            text += line.get<std::string>() + "\n";
        if (!section.lines.empty() && !section.lines.back().closed)
            text.pop_back();
    }
    EXPECT_EQ(text, WithLineFeeds(report.Text()));
}

TEST(JsonReport, HoldsEveryNumberOfAFullRunUnderItsName) {
    for (const FullRun& run : {Example("mtcars.KOV"), Example("pearson.KOV"), Example("cars.KOV"),
                               ExactLine(), PerfectDisagreement()}) {
        EXPECT_EQ(SchemaErrors(run.json), Strings{});
        ExpectSameAsReport(run.json, run.result.report);
    }
}

TEST(JsonReport, AnEstimateHasItsLimits) {
    const FullRun run = Example("mtcars.KOV");
    const auto expectLimits = [&](const char* id, const std::string& estimate, const std::string& lower,
                                  const std::string& upper) {
        const Json& section = run.Section(id);
        const Json &values = section.at("values"), &limits = section.at("intervals").at(estimate);
        EXPECT_EQ(limits, (Json{values.at(lower), values.at(upper)})) << estimate;
        EXPECT_LT(limits[0], values.at(estimate)) << estimate;
        EXPECT_GT(limits[1], values.at(estimate)) << estimate;
    };
    expectLimits("concordance", "rc", "Lower", "Upper");
    expectLimits("concordance", "TRc", "TLower", "TUpper");
    expectLimits("concordance", "Gr", "GLower", "GUpper");
    expectLimits("concordance", "TGr", "E1", "E3");
    for (const std::string distance : {"Squared", "Absolute", "Power", "WinsorizedSquared",
                                       "WinsorizedAbsolute", "WinsorizedPower", "Huber"})
        expectLimits("generalized_concordance", distance + ".Rg", distance + ".Lower", distance + ".Upper");
}

/// Columns are those of the run, by name, and a star in the JSON is one in the line's text.
TEST(JsonReport, AListingIsATableByColumns) {
    testing::Workbench bench;
    bench.OpenExample("mtcars.KOV").Set({{&AnalysisOptions::RESIDUE_WINDOW, std::int16_t{0}}});
    const FullRun run(bench);
    const Json &section = run.Section("residual_analysis"), &tables = section.at("tables"),
               &columns = tables.at(0).at("columns"), &starred = tables.at(0).at("starred");
    ASSERT_EQ(tables.size(), 1U);
    EXPECT_EQ(tables[0].at("rows"), 32);
    const Strings names = {"X",       "Y",        "Deviation", "Fitted", "Residue", "SERes",
                           "StdtRes", "RStdtRes", "Leverage",  "CookD",  "DFFITS"};
    std::size_t name = 0;
    for (const auto& [key, values] : columns.items()) {
        EXPECT_EQ(key, names.at(name++));
        EXPECT_EQ(values.size(), 32U);
    }
    EXPECT_EQ(name, names.size());
    std::size_t first = 0; // the line of the first row
    while (!section.at("lines")[first].get<std::string>().starts_with("  1   "))
        ++first;
    std::size_t stars = 0;
    for (std::size_t row = 0; row < 32; ++row) {
        EXPECT_EQ(columns["X"][row], CellNumber(run.dataset.cells.At(ColumnX, static_cast<int>(row) + 1)));
        EXPECT_EQ(columns["Deviation"][row],
                  columns["Y"][row].get<double>() - columns["X"][row].get<double>());
        std::size_t here = 0;
        for (const auto& [key, rows] : starred.items())
            here += static_cast<std::size_t>(std::ranges::count(rows, Json(row + 1)));
        const std::string line = section.at("lines")[first + row];
        EXPECT_EQ(here, static_cast<std::size_t>(std::ranges::count(line, '*'))) << line;
        stars += here;
    }
    EXPECT_GT(stars, 2U);
}

TEST(JsonReport, HoldsEveryNumberOfAComparison) {
    testing::MemoryFiles files;
    const auto file = [](const char* X) {
        std::string text = "4,0,0\nN=6\nDATA:\n";
        for (int row = 0; row < 6; ++row)
            text += X[row] + std::string(",,") + "131547"[row] + ",,,,\n";
        return text;
    };
    ComparisonList list;
    const Strings paths{"/d/a.KOV", "/d/b.KOV", "/d/c.KOV"};
    list.Add(paths);
    for (std::size_t row = 0; row < paths.size(); ++row) {
        files.files[paths[row]] = file(row == 2 ? "261427" : "132526");
        list.Select(row, true);
    }
    list.settings.DecimalsProbability = "9"; // too many for the narrow cells
    testing::RecordingProgress progress;
    const ComparisonResult result =
        CompareModels({list.Rows(), list.settings, true, testing::FixedClock().Now()}, files, progress);
    ASSERT_TRUE(result.finished) << result.fault;
    const Json json = Json::parse(JsonReport({result, true, "l.KOC", {"a message"}}));
    EXPECT_EQ(SchemaErrors(json), Strings{});
    ExpectSameAsReport(json, result.report);
    EXPECT_EQ(json.at("comparison").at("models").at(1).dump(),
              R"({"ordinal":2,"tag":"2","path":"/d/b.KOV"})");
    EXPECT_EQ(json.at("sections").at("correlations").at("not_shown").size(), 6U);
    EXPECT_EQ(json.at("settings").at("probability"), 9);
    ExpectRefused(json, {R"({"op": "remove", "path": "/settings"})",
                         R"({"op": "remove", "path": "/sections/adequacy"})",
                         R"({"op": "add", "path": "/options", "value": {"LSM": true}})",
                         R"({"op": "replace", "path": "/comparison/models/0/ordinal", "value": "1"})"});
}

TEST(JsonReport, TellsNotShownFromFailedAndKeepsTheSizeOfATail) {
    const FullRun exact = ExactLine();
    EXPECT_EQ(exact.Section("parameter_tests").at("not_shown"), (Json{"T_r", "F1", "F2"}));
    EXPECT_EQ(exact.Section("parameter_tests").at("values").at("T_r"), std::numeric_limits<double>::max());
    EXPECT_FALSE(exact.Section("parameter_tests").at("values").contains("T_b")); // no SD, no line
    EXPECT_EQ(exact.Section("line_family").at("failures").size(), 6U);
    EXPECT_TRUE(exact.Section("line_family").at("values").empty());

    // No line of the text has it. The sums of X - Y and of Y by hand: 0.02 and 642.9.
    EXPECT_NEAR(Example("mtcars.KOV").Section("diverse_measures").at("values").at("PercentBias"),
                100 * 0.02 / 642.9, 1e-12);

    // R 4.2.2, summary(lm(waiting ~ eruptions, faithful)).
    const double P = Example("faithful.KOV").Section("parameter_tests").at("values").at("P_b");
    EXPECT_NEAR(P / 8.1299585066227895e-100, 1, 1e-11);
}

TEST(JsonReport, TheSchemaRefusesBrokenDocuments) {
    ExpectRefused(Example("mtcars.KOV").json,
                  {R"({"op": "remove", "path": "/version"})",
                   R"({"op": "replace", "path": "/format", "value": 2})",
                   R"({"op": "add", "path": "/extra", "value": 1})",
                   R"({"op": "replace", "path": "/dataset/rows", "value": 32.5})",
                   R"({"op": "replace", "path": "/options/LSM", "value": null})",
                   R"({"op": "remove", "path": "/sections/header/failures"})",
                   R"({"op": "replace", "path": "/sections/regression/values/a", "value": true})",
                   R"({"op": "replace", "path": "/sections/concordance/intervals/rc", "value": [1]})",
                   R"({"op": "add", "path": "/sections/header/failures/0", "value": {}})"});
}

TEST(JsonReport, OptionsKeepTheirTypes) {
    FullRun run = Example("cars.KOV");
    run.dataset.options.NOTES_SIZE = 9.1f;
    const Json json = Json::parse(JsonReport({run.dataset, run.session, run.result, "", {}}));
    for (const OptionRow& row : OptionTable()) {
        const Json& value = json.at("options").at(std::string(row.key));
        const bool typed[] = {value.is_number_integer(), value.is_boolean(), value.is_string(),
                              value.is_number_float()};
        EXPECT_TRUE(typed[static_cast<int>(row.Form())]) << row.key;
        const std::string text = value.is_string() ? value.get<std::string>() : UpperCase(value.dump());
        const std::string inFile = OptionText(GetOption(run.dataset.options, row));
        EXPECT_EQ(text, value.is_string() ? inFile : UpperCase(TrimBlanks(inFile))) << row.key;
    }
}

TEST(JsonReport, TextsBadBytesAndNamesThatOccurTwice) {
    constexpr Place places[] = {
        {"text", "", "", 6, 2}, {"long", "", "", 3, 0}, {"says", "", "", 5, 0}, {"blank", "", "", 2, 0}};
    FullRun run = Example("mtcars.KOV");
    ReportSection& section = run.result.report.BeginSection({"texts", "T\xFF", {places}});
    section.Row({{"text", std::string("12")},
                 {"long", std::string("long")},
                 {"says", std::string("n/a")},
                 {"blank", {}},
                 " w"});
    run.session.CurrentDatasetName = "/d\xE9/x\xC3.KOV";
    const auto render = [&] {
        return JsonReport({run.dataset, run.session, run.result, "x\x80", {"\xED\xA0\x80"}});
    };
    const Json json = Json::parse(render()), &texts = json.at("sections").at("texts");
    EXPECT_EQ(json.at("dataset").at("name"), "x\xEF\xBF\xBD.KOV");
    EXPECT_EQ(json.at("dataset").at("file"), "x\xEF\xBF\xBD");
    EXPECT_EQ(texts.at("values").dump(), R"({"text":"12","long":"long","says":"n/a","blank":null})");
    EXPECT_EQ(texts.at("not_shown"), Json{"long"});
    EXPECT_EQ(texts.at("lines"), Json{" 12.00n/a  n/a   w"});

    section.Row({{"text", 1.0}});
    EXPECT_THROW(render(), std::logic_error);
    section.lines.pop_back();
    EXPECT_NO_THROW(render());
    EXPECT_THROW(section.Row({{"unknown", 1.0}}), std::logic_error);
    run.result.report.BeginSection({"texts", "again"});
    EXPECT_THROW(render(), std::logic_error);
}

} // namespace
} // namespace corvane
