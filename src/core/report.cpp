#include "core/report.h"

#include "core/failure.h"
#include "core/format/text_lists.h"

namespace corvane {
namespace {

constexpr std::string_view lineEnd = "\r\n";

ReportField Formatted(const Field& field) {
    Field copy = field;
    if (auto text = FormatField(copy))
        return {field, {}, std::move(*text)};
    throw RunFailure(CellText(field.value) + " does not fit a field of width " + std::to_string(field.width) +
                     " with " + std::to_string(field.decimals) + " decimals");
}

} // namespace

ReportField F(std::int32_t width, std::int32_t decimals, CellValue value) {
    return Formatted({std::move(value), width, decimals, AlignRight, false, false});
}

ReportField FP(std::int32_t width, std::int32_t decimals, CellValue value) {
    return Formatted({std::move(value), width, decimals, AlignRight, true, false});
}

ReportField F0(std::int32_t width, std::int32_t decimals, CellValue value) {
    return Formatted({std::move(value), width, decimals, AlignRight, false, true});
}

std::string ReportLine::Text() const {
    std::string text;
    for (const ReportPiece& piece : pieces)
        text += piece.Text();
    return text;
}

ReportSection& Report::BeginSection(std::string id, std::string title) {
    sections.push_back({std::move(id), std::move(title), {}, {}});
    return sections.back();
}

std::string LinesText(const ReportSection& section, std::string_view end) {
    std::string text;
    for (const ReportLine& line : section.lines) {
        for (const ReportPiece& piece : line.pieces)
            text += piece.Text();
        if (line.closed)
            text += end;
    }
    return text;
}

std::string Report::Text() const {
    std::string text;
    bool first = true;
    for (const ReportSection& section : sections) {
        if (!section.title.empty()) {
            if (!first)
                text.append(lineEnd).append(lineEnd);
            first = false;
            text.append(section.title).append(lineEnd);
            text.append(CharacterCount(section.title), '=').append(lineEnd);
        }
        text += LinesText(section, lineEnd);
    }
    return text;
}

std::string WithLineFeeds(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n')
            result += text[i];
    return result;
}

} // namespace corvane
