#pragma once

#include "core/failure.h"
#include "core/format/format_field.h"
#include "core/shared_column.h"

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// A number (or text) in a report line: its value as computed, how it is shown, and the text that shows it.
struct ReportField {
    Field field;      ///< As the section gave it; formatting works on a copy.
    std::string name; ///< Machine name, unique within its section.
    std::string text; ///< What the report shows.

    ReportField&& Named(std::string_view machineName) && {
        name = machineName;
        return std::move(*this);
    }

    /// Without the blanks around its text.
    ReportField&& Trimmed() &&;
};

/// A field of the given width and decimals, right-aligned. A RunFailure where the field cannot be formatted.
ReportField F(std::int32_t width, std::int32_t decimals, CellValue value);

/// The same for a probability, which never prints as zero.
ReportField FP(std::int32_t width, std::int32_t decimals, CellValue value);

/// The same with a zero that shows also where there are no decimals.
ReportField F0(std::int32_t width, std::int32_t decimals, CellValue value);

/// A run of text, or a field.
struct ReportPiece {
    ReportPiece(const char* words) : text(words) {}
    ReportPiece(std::string words) : text(std::move(words)) {}
    ReportPiece(ReportField&& shown) : field(std::move(shown)), isField(true) {}

    const std::string& Text() const { return isField ? field.text : text; }

    std::string text;
    ReportField field;
    bool isField = false;
};

/// A column of a long table: a field F(width, decimals) a row, what follows it, and the mark between the two.
struct TableColumn {
    std::string name;    ///< Machine name, unique within its section.
    SharedColumn values; ///< Null: the row number, from 1.
    std::int32_t width = 0, decimals = 0;
    std::string after = {};
    std::function<bool(double)> starred = {}; ///< Where given, "*" or a blank stands behind the field.
};

/// A table with a row a pair. Rows are formatted when they are rendered, so that a million of them cost what
/// their columns cost.
struct ReportTable {
    std::vector<TableColumn> columns;
    std::size_t rows = 0;

    void AppendRow(std::string& text, std::size_t row) const;
};

/// A line of pieces, or the rows of a table.
struct ReportLine {
    std::vector<ReportPiece> pieces;
    bool closed = true; ///< Whether a line end follows; it follows every row of a table.
    std::shared_ptr<const ReportTable> table = {};

    std::string Text() const;
};

/// A titled stretch of the report. The frame belongs to the rendering: two line ends (none before the first
/// titled section), the title, and "=" to the title's length.
struct ReportSection {
    std::string id;    ///< Machine name.
    std::string title; ///< Empty for the text before the first section.
    std::vector<ReportLine> lines;
    std::vector<std::string> failures; ///< Why statements of this section were abandoned.

    /// Appends a line that is complete: its pieces were formatted before the call, so a failure leaves
    /// nothing.
    template<class... Pieces>
    void Line(Pieces&&... pieces) {
        Append(true, std::forward<Pieces>(pieces)...);
    }

    /// Runs one statement; a failure in it is noted.
    template<class Work>
    void Statement(Work&& work) {
        if (auto reason = corvane::Statement(std::forward<Work>(work)))
            failures.push_back(std::move(*reason));
    }

    /// Appends the rows of a table, a line each.
    void Table(ReportTable table);

    /// Appends text that the next line goes straight on from.
    template<class... Pieces>
    void OpenLine(Pieces&&... pieces) {
        Append(false, std::forward<Pieces>(pieces)...);
    }

private:
    template<class... Pieces>
    void Append(bool closed, Pieces&&... pieces) {
        ReportLine line;
        line.closed = closed;
        line.pieces.reserve(sizeof...(pieces));
        (line.pieces.emplace_back(std::forward<Pieces>(pieces)), ...);
        lines.push_back(std::move(line));
    }
};

/// The report as a document. Sections keep their place in memory while others are added.
class Report {
public:
    /// Begins with an untitled section of this name.
    explicit Report(std::string firstId = "header") { sections.push_back({std::move(firstId), {}, {}, {}}); }

    /// The section that is being written; at first the untitled one of the header.
    ReportSection& Current() { return sections.back(); }

    ReportSection& BeginSection(std::string id, std::string title);

    const std::list<ReportSection>& Sections() const { return sections; }

    /// The report as the results window shows it, line ends CR LF.
    std::string Text() const;

    /// The same in pieces of some ten kilobytes and with the given line ends, for reports too long to hold.
    void Write(const std::function<void(std::string_view)>& sink, std::string_view lineEnd) const;

    /// Lets the first titled section, too, begin with two line ends.
    void SetApart() { setApart = true; }

private:
    std::list<ReportSection> sections;
    bool setApart = false;
};

/// Text with each CR LF turned into LF.
std::string WithLineFeeds(std::string_view text);

} // namespace corvane
