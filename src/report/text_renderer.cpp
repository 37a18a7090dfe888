#include "report/text_renderer.h"

#include "core/format/text_lists.h"

namespace corvane {
namespace {

/// Writes the text and counts its lines; `layout` takes the positions where it is given.
class TextRenderer {
public:
    TextRenderer(const std::function<void(std::string_view)>& textSink, std::string_view end,
                 ReportLayout* positions)
        : sink(textSink), lineEnd(end), layout(positions) {}

    void Section(const ReportSection& section, bool apart) {
        if (!section.printed)
            return;
        if (!section.title.empty() && apart) {
            EndLine();
            EndLine();
        }
        if (layout)
            layout->sections.push_back({&section, line});
        if (!section.title.empty()) {
            text += section.title;
            EndLine();
            text.append(CharacterCount(section.title), '=');
            EndLine();
        }
        for (const ReportLine& each : section.lines)
            Line(section, each);
    }

    void PassOn() {
        sink(text);
        text.clear();
    }

private:
    static constexpr std::size_t enough = 1 << 16; ///< Bytes that are passed on at once.

    void EndLine() {
        text += lineEnd;
        ++line;
        column = 0;
        if (text.size() > enough)
            PassOn();
    }

    void Line(const ReportSection& section, const ReportLine& each) {
        if (each.listing) {
            if (layout)
                layout->listings.push_back({&section, each.listing.get(), line});
            if (layout) { // the rows of a listing hold no fields to find
                line += each.listing->rows;
                return;
            }
            for (std::size_t row = 0; row < each.listing->rows; ++row) {
                each.listing->AppendRow(text, row);
                EndLine();
            }
            return;
        }
        std::size_t length = 0;
        for (const ReportPiece& piece : each.pieces) {
            const std::string& words = piece.Text();
            const std::size_t characters = layout || each.underline ? CharacterCount(words) : 0;
            if (layout && piece.field)
                layout->fields.push_back({&section, &*piece.field, line, column, characters});
            text += words;
            column += characters;
            length += characters;
        }
        if (each.closed)
            EndLine();
        if (each.underline) {
            text.append(length, each.underline);
            EndLine();
        }
    }

    const std::function<void(std::string_view)>& sink;
    std::string_view lineEnd;
    ReportLayout* layout;
    std::string text;
    std::size_t line = 0, column = 0;
};

void Render(const Report& report, const std::function<void(std::string_view)>& sink, std::string_view lineEnd,
            ReportLayout* layout) {
    TextRenderer renderer(sink, lineEnd, layout);
    bool apart = report.IsSetApart();
    for (const ReportSection& section : report.Sections()) {
        renderer.Section(section, apart);
        apart = apart || !section.title.empty();
    }
    renderer.PassOn();
}

} // namespace

void Report::Write(const std::function<void(std::string_view)>& sink, std::string_view lineEnd) const {
    Render(*this, sink, lineEnd, nullptr);
}

std::string Report::Text() const {
    std::string text;
    Write([&](std::string_view part) { text += part; }, "\r\n");
    return text;
}

ReportLayout LayOut(const Report& report) {
    ReportLayout layout;
    Render(
        report, [](std::string_view) {}, "\n", &layout);
    return layout;
}

std::string SectionText(const ReportSection& section) {
    std::string text;
    const std::function<void(std::string_view)> sink = [&](std::string_view part) { text += part; };
    TextRenderer renderer(sink, "\r\n", nullptr);
    renderer.Section(section, false);
    renderer.PassOn();
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
