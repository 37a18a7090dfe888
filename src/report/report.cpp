#include "report/report.h"

#include "core/format/text_lists.h"

#include <algorithm>
#include <stdexcept>

namespace corvane {
namespace {

Field FieldOf(const Place& place, CellValue value, std::optional<std::int32_t> width,
              std::optional<std::int32_t> decimals) {
    return {std::move(value), width.value_or(place.width),     decimals.value_or(place.decimals),
            AlignRight,       place.look == Look::Probability, place.look == Look::LeadingZero};
}

/// The field's text. A RunFailure, which says what the value is of, where it cannot be formatted.
std::string Formatted(Field field, const std::string& of = {}) {
    if (auto text = FormatField(field))
        return std::move(*text);
    throw RunFailure((of.empty() ? "" : of + ": ") + CellText(field.value) +
                     " does not fit a field of width " + std::to_string(field.width) + " with " +
                     std::to_string(field.decimals) + " decimals");
}

/// Whether "n/a" is in place of the value; a text that itself says "n/a" is shown.
bool IsShown(const Field& field, std::string_view text) {
    const std::string_view words = TrimBlanks(text);
    return words != TrimBlanks(AlignField("n/a", field.width, field.alignment)) ||
           TrimBlanks(CellText(field.value)) == words;
}

/// A place's name with the part that varies.
std::string FullName(std::string_view name, std::string_view part) {
    std::string full(name);
    if (const std::size_t star = full.find('*'); star != std::string::npos)
        full.replace(star, 1, part);
    return full;
}

} // namespace

RowItem&& RowItem::Sized(std::int32_t itsWidth, std::int32_t itsDecimals) && {
    width = itsWidth;
    decimals = itsDecimals;
    return std::move(*this);
}

RowItem&& RowItem::As(std::string itsText) && {
    text = std::move(itsText);
    return std::move(*this);
}

RowItem&& RowItem::Between(double lower, double upper) && {
    interval = {lower, upper};
    return std::move(*this);
}

RowItem&& RowItem::Of(std::string what) && {
    of = std::move(what);
    return std::move(*this);
}

void Listing::AppendRow(std::string& text, std::size_t row) const {
    for (const ListingColumn& column : columns) {
        const double value = column.values ? (*column.values)[row] : static_cast<double>(row + 1);
        text += Formatted(FieldOf(*column.place, value, {}, {}));
        if (column.starred)
            text += column.starred(value) ? '*' : ' ';
        text += column.after;
    }
}

std::string ReportLine::Text() const {
    std::string text;
    for (const ReportPiece& piece : pieces)
        text += piece.Text();
    return text;
}

const Place& ReportSection::At(std::string_view name) const {
    for (const auto& table : places)
        if (const auto found = std::ranges::find(table, name, &Place::name); found != table.end())
            return *found;
    throw std::logic_error("section '" + id + "' has no place '" + std::string(name) + "'");
}

ReportLine ReportSection::Built(LineKind kind, const RowItem* items, std::size_t count) const {
    ReportLine line{.kind = kind};
    line.pieces.reserve(count);
    const auto addWords = [&](std::string_view words) {
        if (words.empty())
            return;
        if (line.pieces.empty() || line.pieces.back().field)
            line.pieces.push_back({std::string(words)});
        else
            line.pieces.back().words += words;
    };
    for (const RowItem* item = items; item != items + count; ++item) {
        if (!item->isValue) {
            addWords(item->words);
            continue;
        }
        const Place& place = At(item->place);
        addWords(place.label);
        Field field = FieldOf(place, item->value, item->width, item->decimals);
        std::string text = item->text ? *item->text : Formatted(field, item->of);
        const bool shown = IsShown(field, text);
        if (place.look == Look::Trimmed)
            text = std::string(TrimBlanks(text));
        line.pieces.push_back({{},
                               ReportField{&place, FullName(place.name, item->part), std::move(field),
                                           std::move(text), shown, item->interval}});
    }
    return line;
}

void ReportSection::Row(RowItems items) {
    lines.push_back(Built(LineKind::Values, items.begin(), items.size()));
}

void ReportSection::Value(const RowItem& item) {
    for (ReportPiece& piece : Built(LineKind::Values, &item, 1).pieces)
        if (piece.field)
            unprinted.push_back(std::move(*piece.field));
}

void ReportSection::TableRow(RowItems items, std::size_t firstColumn) {
    lines.push_back(Built(LineKind::TableRow, items.begin(), items.size()));
    lines.back().table = tables.size() - 1;
    lines.back().firstColumn = firstColumn;
}

void ReportSection::TableRow(const std::vector<RowItem>& items, std::size_t firstColumn) {
    lines.push_back(Built(LineKind::TableRow, items.data(), items.size()));
    lines.back().table = tables.size() - 1;
    lines.back().firstColumn = firstColumn;
}

void ReportSection::BeginTable(std::vector<std::string> columns) {
    tables.push_back({std::move(columns)});
}

void ReportSection::TableHead(std::string words) {
    lines.push_back(
        {.kind = LineKind::TableHead, .pieces = {{std::move(words)}}, .table = tables.size() - 1});
}

void ReportSection::Text(std::string words, LineEnd end) {
    lines.push_back(
        {.kind = LineKind::Text, .pieces = {{std::move(words)}}, .closed = end == LineEnd::Closed});
}

void ReportSection::Heading(std::string words, char underline) {
    lines.push_back({.kind = LineKind::Heading, .pieces = {{std::move(words)}}, .underline = underline});
}

void ReportSection::Rule(std::size_t length, char character) {
    lines.push_back({.kind = LineKind::Rule, .pieces = {{std::string(length, character)}}});
}

void ReportSection::Note(std::string words, LineEnd end) {
    lines.push_back(
        {.kind = LineKind::Note, .pieces = {{std::move(words)}}, .closed = end == LineEnd::Closed});
}

void ReportSection::Blank() {
    lines.push_back({.kind = LineKind::Blank});
}

void ReportSection::List(Listing listing) {
    for (ListingColumn& column : listing.columns)
        column.place = &At(column.name);
    lines.push_back(
        {.kind = LineKind::Listing, .listing = std::make_shared<const Listing>(std::move(listing))});
}

std::string ReportSection::Shown(std::string_view place, CellValue value) const {
    return Formatted(FieldOf(At(place), std::move(value), {}, {}));
}

ReportSection& Report::BeginSection(const SectionFrame& frame) {
    // A failure may have been filed before the title; what is printed goes on in the order of writing.
    std::vector<std::string> failures;
    if (const ReportSection* early = Find(frame.id); early && !early->printed) {
        failures = early->failures;
        sections.remove_if([&](const ReportSection& section) { return &section == early; });
    }
    sections.push_back({.id = std::string(frame.id),
                        .title = std::string(frame.title),
                        .places = frame.places,
                        .failures = std::move(failures)});
    return sections.back();
}

ReportSection* Report::Find(std::string_view id) {
    const auto found = std::ranges::find(sections, id, &ReportSection::id);
    return found == sections.end() ? nullptr : &*found;
}

void Report::FileFailure(std::string_view id, std::string reason) {
    ReportSection* section = Find(id);
    if (!section)
        section = &sections.emplace_back(ReportSection{.id = std::string(id), .printed = false});
    section->failures.push_back(std::move(reason));
}

} // namespace corvane
