#include "core/report.h"

#include "core/failure.h"
#include "core/format/text_lists.h"

namespace corvane {
namespace {

std::string Shown(Field field) {
    if (auto text = FormatField(field))
        return std::move(*text);
    throw RunFailure(CellText(field.value) + " does not fit a field of width " + std::to_string(field.width) +
                     " with " + std::to_string(field.decimals) + " decimals");
}

ReportField Formatted(Field field) {
    std::string text = Shown(field);
    return {std::move(field), {}, std::move(text)};
}

} // namespace

ReportField&& ReportField::Trimmed() && {
    text = std::string(TrimBlanks(text));
    return std::move(*this);
}

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

void ReportSection::Table(ReportTable table) {
    ReportLine line;
    line.table = std::make_shared<const ReportTable>(std::move(table));
    lines.push_back(std::move(line));
}

void ReportTable::AppendRow(std::string& text, std::size_t row) const {
    for (const TableColumn& column : columns) {
        const double value = column.values ? (*column.values)[row] : static_cast<double>(row + 1);
        text += Shown({value, column.width, column.decimals, AlignRight});
        if (column.starred)
            text += column.starred(value) ? '*' : ' ';
        text += column.after;
    }
}

void Report::Write(const std::function<void(std::string_view)>& sink, std::string_view lineEnd) const {
    constexpr std::size_t enough = 1 << 16;
    std::string text;
    const auto passOn = [&] {
        sink(text);
        text.clear();
    };
    bool first = !setApart;
    for (const ReportSection& section : sections) {
        if (!section.title.empty()) {
            if (!first)
                text.append(lineEnd).append(lineEnd);
            first = false;
            text.append(section.title).append(lineEnd);
            text.append(CharacterCount(section.title), '=').append(lineEnd);
        }
        for (const ReportLine& line : section.lines) {
            for (const ReportPiece& piece : line.pieces)
                text += piece.Text();
            const std::size_t rows = line.table ? line.table->rows : 0;
            for (std::size_t row = 0; row < rows; ++row) {
                line.table->AppendRow(text, row);
                text += lineEnd;
                if (text.size() > enough)
                    passOn();
            }
            if (line.closed && !line.table)
                text += lineEnd;
        }
    }
    passOn();
}

std::string Report::Text() const {
    std::string text;
    Write([&](std::string_view part) { text += part; }, "\r\n");
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
