#include "report/json_renderer.h"

#include "core/format/text_lists.h"

#include <stdexcept>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace corvane {
namespace {

std::logic_error OccursTwice(const std::string& name, const std::string& where) {
    return std::logic_error("the name '" + name + "' occurs twice in the report's " + where);
}

Json ValueJson(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value))
        return *number;
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    return nullptr;
}

/// The columns of a listing and the rows (from 1) in which a column has a star.
Json ListingJson(const Listing& listing) {
    Json columns = Json::object(), starred = Json::object();
    for (const ListingColumn& column : listing.columns) {
        if (!column.values) // the row numbers
            continue;
        columns[column.name] = *column.values;
        if (!column.starred)
            continue;
        Json& rows = starred[column.name] = Json::array();
        for (std::size_t row = 0; row < listing.rows; ++row)
            if (column.starred((*column.values)[row]))
                rows.push_back(row + 1);
    }
    return {{"rows", listing.rows}, {"columns", std::move(columns)}, {"starred", std::move(starred)}};
}

/// The parts of a section, gathered line by line.
class SectionJson {
public:
    explicit SectionJson(const ReportSection& reportSection) : section(reportSection) {}

    Json Make() {
        for (const ReportLine& line : section.lines)
            Add(line);
        if (!text.empty())
            lines.push_back(text);
        for (const ReportField& field : section.unprinted)
            Add(field);
        Json failures = Json::array();
        for (const std::string& reason : section.failures)
            failures.push_back({{"reason", reason}});

        Json json;
        json["title"] = section.title;
        json["values"] = std::move(values);
        json["not_shown"] = std::move(notShown);
        if (!intervals.empty())
            json["intervals"] = std::move(intervals);
        json["failures"] = std::move(failures);
        if (!tables.empty())
            json["tables"] = std::move(tables);
        json["lines"] = std::move(lines);
        return json;
    }

private:
    void Add(const ReportLine& line) {
        for (const ReportPiece& piece : line.pieces)
            if (piece.field)
                Add(*piece.field);
        if (line.listing) {
            tables.push_back(ListingJson(*line.listing));
            for (std::size_t row = 0; row < line.listing->rows; ++row) {
                line.listing->AppendRow(text, row);
                lines.push_back(std::exchange(text, {}));
            }
            return;
        }
        text += line.Text();
        const std::size_t length = line.underline ? CharacterCount(text) : 0;
        if (line.closed)
            lines.push_back(std::exchange(text, {}));
        if (line.underline)
            lines.push_back(std::string(length, line.underline));
    }

    void Add(const ReportField& field) {
        // A look through the object for each of a hundred thousand names would take minutes.
        if (!names.insert(field.name).second)
            throw OccursTwice(field.name, "section '" + section.id + "'");
        values.get_ref<Json::object_t&>().emplace_back(field.name, ValueJson(field.field.value));
        if (!field.shown)
            notShown.push_back(field.name);
        if (field.interval)
            intervals[field.name] = {field.interval->lower, field.interval->upper};
    }

    const ReportSection& section;
    std::unordered_set<std::string_view> names;
    Json values = Json::object(), notShown = Json::array(), intervals = Json::object();
    Json tables = Json::array(), lines = Json::array();
    std::string text;
};

} // namespace

void AddSections(Json& sections, const Report& report) {
    for (const ReportSection& section : report.Sections()) {
        if (sections.contains(section.id))
            throw OccursTwice(section.id, "sections");
        sections[section.id] = SectionJson(section).Make();
    }
}

std::string JsonText(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

} // namespace corvane
