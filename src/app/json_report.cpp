#include "app/json_report.h"

#include "core/format/numbers.h"
#include "core/format/paths.h"
#include "core/option_table.h"
#include "core/version.h"
#include "report/json_renderer.h"

namespace corvane {
namespace {

/// Raised when a reader of the last format would misread the new one.
constexpr int formatNumber = 1;

Json OptionJson(const OptionValue& value) {
    // The digits that the dataset file has: 9.1, and not the double next to the single 9.1.
    if (const auto* number = std::get_if<float>(&value))
        return ReadNumber(NumberText(*number)).value_or(*number);
    return std::visit([](const auto& held) { return Json(held); }, value);
}

/// What every document begins with.
Json NewDocument() {
    Json json;
    json["format"] = formatNumber;
    json["program"] = "corvane";
    json["version"] = VersionText();
    return json;
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
    return JsonText(json);
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
    return JsonText(json);
}

} // namespace corvane
