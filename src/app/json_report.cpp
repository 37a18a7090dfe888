#include "app/json_report.h"

#include "core/format/numbers.h"
#include "core/format/paths.h"
#include "core/format/text_lists.h"
#include "core/option_table.h"
#include "core/version.h"

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace corvane {
namespace {

using Json = nlohmann::ordered_json;

/// Raised when a reader of the last format would misread the new one.
constexpr int formatNumber = 1;

std::logic_error OccursTwice(const std::string& name, const std::string& where) {
    return std::logic_error("the name '" + name + "' occurs twice in the report's " + where);
}

Json OptionJson(const OptionValue& value) {
    // The digits that the dataset file has: 9.1, and not the double next to the single 9.1.
    if (const auto* number = std::get_if<float>(&value))
        return ReadNumber(NumberText(*number)).value_or(*number);
    return std::visit([](const auto& held) { return Json(held); }, value);
}

Json ValueJson(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value))
        return *number;
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    return nullptr;
}

/// Whether "n/a" stands in the place of the value; a text that itself says "n/a" is shown.
bool NotShown(const ReportField& shown) {
    const auto& [value, width, decimals, alignment, probability, leadingZero] = shown.field;
    const std::string_view text = TrimBlanks(shown.text);
    return text == TrimBlanks(AlignField("n/a", width, alignment)) && TrimBlanks(CellText(value)) != text;
}

/// The columns of a long table and the rows (from 1) in which a column has a star.
Json TableJson(const ReportTable& table) {
    Json columns = Json::object(), starred = Json::object();
    for (const TableColumn& column : table.columns) {
        if (!column.values) // the row numbers
            continue;
        columns[column.name] = *column.values;
        if (!column.starred)
            continue;
        Json& rows = starred[column.name] = Json::array();
        for (std::size_t row = 0; row < table.rows; ++row)
            if (column.starred((*column.values)[row]))
                rows.push_back(row + 1);
    }
    return {{"rows", table.rows}, {"columns", std::move(columns)}, {"starred", std::move(starred)}};
}

Json SectionJson(const ReportSection& section) {
    Json tables = Json::array();
    std::unordered_set<std::string_view> names;
    Json values = Json::object(), notShown = Json::array(), failures = Json::array(), lines = Json::array();
    const auto addField = [&](const ReportField& shown) {
        if (shown.name.empty()) {
            // Words that were only put into a column belong to the line.
            if (std::holds_alternative<double>(shown.field.value))
                throw std::logic_error("a number of the report's section '" + section.id + "' has no name");
            return;
        }
        // A look through the object for each of a hundred thousand names would take minutes.
        if (!names.insert(shown.name).second)
            throw OccursTwice(shown.name, "section '" + section.id + "'");
        values.get_ref<Json::object_t&>().emplace_back(shown.name, ValueJson(shown.field.value));
        if (NotShown(shown))
            notShown.push_back(shown.name);
    };

    std::string text;
    for (const ReportLine& line : section.lines) {
        for (const ReportPiece& piece : line.pieces)
            if (piece.isField)
                addField(piece.field);
        if (line.table) {
            tables.push_back(TableJson(*line.table));
            for (std::size_t row = 0; row < line.table->rows; ++row) {
                line.table->AppendRow(text, row);
                lines.push_back(std::exchange(text, {}));
            }
            continue;
        }
        text += line.Text();
        if (line.closed)
            lines.push_back(std::exchange(text, {}));
    }
    if (!text.empty())
        lines.push_back(text);
    for (const std::string& reason : section.failures)
        failures.push_back({{"reason", reason}});

    Json json;
    json["title"] = section.title;
    json["values"] = std::move(values);
    json["not_shown"] = std::move(notShown);
    json["failures"] = std::move(failures);
    if (!tables.empty())
        json["tables"] = std::move(tables);
    json["lines"] = std::move(lines);
    return json;
}

/// What every document begins with.
Json NewDocument() {
    Json json;
    json["format"] = formatNumber;
    json["program"] = "corvane";
    json["version"] = VersionText();
    return json;
}

void AddSections(Json& sections, const Report& report) {
    for (const ReportSection& section : report.Sections()) {
        if (sections.contains(section.id))
            throw OccursTwice(section.id, "sections");
        sections[section.id] = SectionJson(section);
    }
}

std::string Text(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

} // namespace

std::string JsonReport(const JsonRun& run) {
    Json json = NewDocument();

    const std::string& path = run.session.CurrentDatasetName;
    Json& dataset = json["dataset"];
    dataset["file"] = run.file;
    dataset["path"] = path;
    dataset["name"] = FileNameOf(path);
    dataset["rows"] = run.result.rows;

    Json& options = json["options"];
    for (const OptionRow& row : OptionTable())
        options[std::string(row.key)] = OptionJson(GetOption(run.dataset.options, row));
    json["messages"] = run.messages;

    Json& sections = json["sections"] = Json::object();
    AddSections(sections, run.result.report);
    for (const RunWindow& window : run.result.windows)
        AddSections(sections, window.content);
    return Text(json);
}

std::string JsonReport(const JsonComparison& comparison) {
    Json json = NewDocument();
    Json& compared = json["comparison"];
    compared["file"] = comparison.file.empty() ? Json() : Json(comparison.file);
    compared["rows"] = comparison.result.rows;
    Json& models = compared["models"] = Json::array();
    for (const ComparisonEntry& model : comparison.result.models)
        models.push_back({{"ordinal", models.size() + 1}, {"tag", model.tag}, {"path", model.path}});

    const ReportColumns& columns = comparison.result.columns;
    json["settings"] = {{"long", columns.Long},
                        {"short", columns.Short},
                        {"statistics", columns.Statistics},
                        {"probability", columns.Probability},
                        {"correlations", columns.Correlations},
                        {"references", comparison.references}};
    json["messages"] = comparison.messages;
    AddSections(json["sections"] = Json::object(), comparison.result.report);
    return Text(json);
}

} // namespace corvane
