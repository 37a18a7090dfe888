#pragma once

#include "core/format/failure.h"
#include "core/format/format_field.h"
#include "core/format/shared_column.h"
#include "report/place.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// The limits between which a value lies by some confidence.
struct Interval {
    double lower = 0, upper = 0;
};

/// A value in a report line: what was computed, where and how it is shown, and the text that shows it.
struct ReportField {
    const Place* place = nullptr;
    std::string name;  ///< The place's, with the part that varies.
    Field field;       ///< The value as the section gave it; formatting works on a copy.
    std::string text;  ///< What the report shows.
    bool shown = true; ///< False where the value is too wide for its place, so that "n/a" is in its stead.
    std::optional<Interval> interval{};
};

/// A run of words, or a field.
struct ReportPiece {
    std::string words;
    std::optional<ReportField> field{};

    const std::string& Text() const { return field ? field->text : words; }
};

/// What a line of the report is, so that every renderer can show it in its own way.
enum class LineKind {
    Values,    ///< Values under their labels.
    Text,      ///< Words without a value.
    Heading,   ///< Words with a line under them.
    Rule,      ///< One character over and over.
    Note,      ///< A remark on the section.
    Blank,     ///< Nothing.
    TableHead, ///< The titles of a table's columns.
    TableRow,  ///< A row of a table: its title, then its fields.
    Listing,   ///< The rows of a listing.
};

/// A column of a listing: a field a row.
struct ListingColumn {
    std::string name;                      ///< Of a place of the section.
    SharedColumn values;                   ///< Null: the row number, from 1.
    std::string after{};                   ///< What follows the field.
    std::function<bool(double)> starred{}; ///< Where given, "*" or a blank follows the field at once.
    const Place* place = nullptr;          ///< Filled in by the section.
};

/// A table with a row a pair. Rows are formatted when they are rendered, so that a million of them cost what
/// their columns cost.
struct Listing {
    std::vector<ListingColumn> columns;
    std::size_t rows = 0;

    void AppendRow(std::string& text, std::size_t row) const;
};

/// One line, or the rows of a listing.
struct ReportLine {
    LineKind kind = LineKind::Text;
    std::vector<ReportPiece> pieces{};
    bool closed = true;          ///< Whether a line end follows; it follows every row of a listing.
    char underline = 0;          ///< A heading's.
    std::size_t table = 0;       ///< A table's row or head: its place among the section's tables.
    std::size_t firstColumn = 0; ///< A table's row: the column of its first field, from 0.
    std::shared_ptr<const Listing> listing{};

    /// The words and fields, without what is under a heading.
    std::string Text() const;
};

/// A small table; its rows are lines of the section.
struct SmallTable {
    std::vector<std::string> columns; ///< Titles, without that of the rows' titles.
};

/// What a section puts into a line: words, or a value for one of its places.
class RowItem {
public:
    RowItem(const char* someWords) : words(someWords) {}
    RowItem(std::string someWords) : words(std::move(someWords)) {}
    /// A value for the place of this name; `varying` is what takes the place of the "*" in its name.
    RowItem(std::string_view placeName, CellValue itsValue, std::string_view varying = {})
        : place(placeName), part(varying), value(std::move(itsValue)), isValue(true) {}

    /// With width and decimals of its own instead of the place's.
    RowItem&& Sized(std::int32_t itsWidth, std::int32_t itsDecimals) &&;
    /// Shown as this text, whatever the place's look.
    RowItem&& As(std::string itsText) &&;
    /// With the limits of the value.
    RowItem&& Between(double lower, double upper) &&;
    /// With what the value is of; a failure to show it begins so.
    RowItem&& Of(std::string what) &&;

private:
    friend struct ReportSection;

    std::string words{};
    std::string place{}, part{}, of{};
    CellValue value{};
    bool isValue = false;
    std::optional<std::int32_t> width{}, decimals{};
    std::optional<std::string> text{};
    std::optional<Interval> interval{};
};

using RowItems = std::initializer_list<RowItem>;

enum class LineEnd { Closed, Open };

/// A titled stretch of the report. The frame belongs to the rendering: two line ends (none before the first
/// titled section), the title, and "=" to the title's length.
struct ReportSection {
    std::string id;      ///< Machine name.
    std::string title{}; ///< Empty for the text before the first section.
    PlaceTables places{};
    std::vector<ReportLine> lines{};
    std::vector<SmallTable> tables{};
    std::vector<ReportField> unprinted{}; ///< Values that no line shows.
    std::vector<std::string> failures{};  ///< Why statements of this section were abandoned.
    bool printed = true; ///< False for a section that failed before it had a title: it holds failures alone.

    /// Appends a line of values and words. It is built whole before it is appended: a RunFailure where a
    /// field cannot be formatted leaves nothing.
    void Row(RowItems items);

    /// Files a value that no line shows, for the JSON and the windows. The place says how it would look.
    void Value(const RowItem& item);

    /// The same as a row of the newest table.
    void TableRow(RowItems items, std::size_t firstColumn = 0);
    /// A row whose number of fields is known at run time only.
    void TableRow(const std::vector<RowItem>& items, std::size_t firstColumn = 0);

    /// Begins a table of these columns; the rows that follow are its own.
    void BeginTable(std::vector<std::string> columns);
    /// Appends a line of the newest table's head, as printed.
    void TableHead(std::string words);

    void Text(std::string words, LineEnd end = LineEnd::Closed);
    void Heading(std::string words, char underline = '-');
    void Rule(std::size_t length, char character = '-');
    void Note(std::string words, LineEnd end = LineEnd::Closed);
    void Blank();

    /// Appends the rows of a listing, a line each.
    void List(Listing listing);

    /// The text of a value as a place of this section shows it.
    std::string Shown(std::string_view place, CellValue value) const;

    /// Runs one statement; a failure in it is noted.
    template<class Work>
    void Statement(Work&& work) {
        if (auto reason = corvane::Statement(std::forward<Work>(work)))
            failures.push_back(std::move(*reason));
    }

private:
    const Place& At(std::string_view name) const;
    ReportLine Built(LineKind kind, const RowItem* items, std::size_t count) const;
};

/// The report as a document. Sections keep their place in memory while others are added.
class Report {
public:
    /// Begins with an untitled section of this name.
    explicit Report(std::string firstId = "header") { sections.push_back({.id = std::move(firstId)}); }

    /// The section that is being written; at first the untitled one of the header.
    ReportSection& Current() { return sections.back(); }

    ReportSection& BeginSection(const SectionFrame& frame);

    /// The section of this id, or null.
    ReportSection* Find(std::string_view id);

    /// Files a failure under the section of this id, which need not have begun.
    void FileFailure(std::string_view id, std::string reason);

    const std::list<ReportSection>& Sections() const { return sections; }

    /// The report as the results window shows it, line ends CR LF.
    std::string Text() const;

    /// The same in pieces of some ten kilobytes and with the given line ends, for reports too long to hold.
    void Write(const std::function<void(std::string_view)>& sink, std::string_view lineEnd) const;

    /// Lets the first titled section, too, begin with two line ends.
    void SetApart() { setApart = true; }
    bool IsSetApart() const { return setApart; }

private:
    std::list<ReportSection> sections;
    bool setApart = false;
};

} // namespace corvane
