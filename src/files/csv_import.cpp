#include "files/csv_import.h"

#include "core/evaluation_arrays.h"
#include "core/format/code_page.h"
#include "core/format/numbers.h"
#include "core/format/text_lists.h"
#include "core/grid_operations.h"
#include "files/csv_decimals.h"
#include "files/csv_names.h"
#include "files/csv_reader.h"

#include <algorithm>
#include <limits>
#include <new>
#include <optional>
#include <utility>

namespace corvane {
namespace {

/// Remarks of one kind, of which all are counted.
class Remarks {
public:
    explicit Remarks(bool keepAll) : mostKept(keepAll ? std::numeric_limits<std::size_t>::max() : 10) {}

    template<class Text>
    void Add(std::size_t line, Text&& text) {
        if (count++ < mostKept)
            kept.push_back({line, text()});
    }
    void MoveTo(std::vector<CsvRemark>& all, const std::string& whatInAll) {
        std::ranges::move(kept, std::back_inserter(all));
        if (count > mostKept)
            all.push_back({0, std::to_string(count) + " " + whatInAll +
                                  " in all; corvane import reports each of them"});
    }

private:
    std::size_t mostKept;
    std::vector<CsvRemark> kept;
    std::size_t count = 0;
};

/// The import of one table.
class CsvImport {
public:
    CsvImport(std::string_view tableText, const CsvOptions& tableOptions)
        : table(tableText), options(tableOptions), evidence(tableOptions.decimal),
          notNumbers(tableOptions.everyRemark), withoutY(tableOptions.everyRemark),
          shortRows(tableOptions.everyRemark), unclearMarks(tableOptions.everyRemark) {}

    std::optional<CsvRemark> Run();
    std::string Summary() const;
    std::vector<CsvRemark> Warnings();

    DataMatrix cells;

private:
    std::optional<CsvRemark> ReadRecord(CsvReader& reader);
    std::string SurplusAdvice() const;
    std::optional<CsvRemark> ColumnDoubt() const;
    bool HasNumbers(int column) const { return numbers[static_cast<std::size_t>(column)]; }
    void TakeCell(const CsvField& field, std::size_t number, const CsvReader& reader);

    std::string_view table;
    const CsvOptions& options;
    CsvLayout layout;
    DecimalEvidence evidence;
    std::int32_t rows = 0;
    std::string converted;                      ///< Holds a number with a decimal comma.
    std::array<bool, LastColumn + 1> numbers{}; ///< Columns in which a number was read.
    std::optional<CsvRemark> units;             ///< The first row, if it may be units.
    std::optional<CsvRemark> quotedComma;       ///< The first in an export.
    std::size_t widest = 0;                     ///< The most fields of a row.
    bool blanks = false;                        ///< After separators in rows.
    bool headBelow = false;                     ///< The first row has names of columns.
    std::string rival;                          ///< Why a column with numbers may be X or Y, too.
    Remarks notNumbers, withoutY, shortRows, unclearMarks;
};

std::optional<CsvRemark> CsvImport::Run() {
    constexpr std::int32_t mostRows = std::numeric_limits<std::int32_t>::max() - 1;
    if (auto doubt = FindLayout(table, options, layout))
        return doubt;
    cells.SetRowCount(mostRows);
    CsvReader reader(table.substr(layout.start), layout.separator, layout.firstLine);
    if (layout.header)
        for (reader.NextRecord(); !reader.ReadField()->last;) {
        }
    while (reader.NextRecord()) {
        if (rows == mostRows)
            return CsvRemark{reader.Line(), "the table has more rows than can be counted"};
        ++rows;
        if (auto fault = ReadRecord(reader))
            return CsvRemark{fault->line, fault->text + ShownLine(reader.LineText())};
    }
    if (auto doubt = evidence.Doubt(layout.separator))
        return doubt;
    // A spreadsheet may have saved an export again with decimal commas; then it has no point any more.
    if (quotedComma && !options.decimal && !evidence.Seen(NumberForm::Point) &&
        !evidence.Seen(NumberForm::PointOrGroups))
        return quotedComma;
    if (units && HasNumbers(ColumnX) && HasNumbers(ColumnY))
        return units;
    if (rows < 2)
        return CsvRemark{0, "the table has too few rows: " + std::to_string(rows)};
    cells.SetRowCount(rows);
    return layout.exported ? std::nullopt : ColumnDoubt();
}

/// What the columns' contents tell against the choice of them.
std::optional<CsvRemark> CsvImport::ColumnDoubt() const {
    if (!rival.empty())
        return layout.InHead(rival);
    bool countsRows = layout.rowNumbers;
    std::array<bool, LastColumn + 1> filled{};
    for (std::int32_t row = 1; row <= rows; ++row) {
        countsRows = countsRows && CellNumber(cells.At(ColumnY, row)) == row;
        for (const int column : {ColumnX, ColumnY}) {
            bool& has = filled[static_cast<std::size_t>(column)];
            has = has || !IsEmpty(cells.At(column, row));
        }
        if (!countsRows && filled[ColumnX] && filled[ColumnY])
            break;
    }
    for (const int column : {ColumnX, ColumnY})
        if (!filled[static_cast<std::size_t>(column)])
            return layout.InHead("no row has a value in " + std::string(DatasetColumnName(column)));
    if (countsRows)
        return layout.InHead("Obs is 1, 2, 3 and so on, as the numbers of the rows are; import with --y");
    const std::string orSeparator = ", or if the columns are right, import with --separator " +
                                    std::string(SeparatorName(layout.separator));
    if (!options.separator &&
        std::any_of(layout.fields.begin() + static_cast<std::ptrdiff_t>(widest), layout.fields.end(),
                    [](const std::string& field) { return !field.empty(); }))
        return layout.InHead("no row has as many fields as the first line; if a name in it holds the " +
                             std::string(SeparatorName(layout.separator)) + ", put it in quotes" +
                             orSeparator);
    if ((layout.twins || (layout.blankBefore && !blanks)) && !evidence.Seen(NumberForm::Point) &&
        !evidence.Seen(NumberForm::PointOrGroups))
        return layout.InHead(
            "names here may hold commas that part nothing, and numbers decimal ones; if so, put "
            "them in quotes" +
            orSeparator);
    return std::nullopt;
}

/// What to do where rows have more fields than the first record, if all of them tell it alike.
std::string CsvImport::SurplusAdvice() const {
    CsvReader reader(table.substr(layout.start), layout.separator, layout.firstLine);
    bool allOneMore = true, allEmpty = true;
    for (bool first = true; reader.NextRecord(); first = false) {
        std::size_t number = 0;
        for (bool last = false; !last; ++number) {
            const auto field = reader.ReadField();
            if (!field)
                return {};
            last = field->last;
            allEmpty =
                allEmpty && (first || number < layout.columns.size() || TrimWhiteSpace(field->text).empty());
        }
        allOneMore = allOneMore && (first || number == layout.columns.size() + 1);
    }
    if (allEmpty)
        return " If not, remove the separators at the ends of the rows, or end the first line with one, too";
    if (allOneMore && layout.header)
        return " The rows have one field more than the header; if they begin with names, give these a name "
               "in "
               "the first line";
    return {};
}

std::optional<CsvRemark> CsvImport::ReadRecord(CsvReader& reader) {
    std::size_t number = 0;
    for (bool last = false; !last; ++number) {
        const auto field = reader.ReadField();
        if (!field)
            return CsvRemark{reader.Line(), reader.Fault()};
        last = field->last;
        // Empty fields count, too: "1,5," is three, even if what was meant is 1.5 and nothing.
        if (number >= layout.columns.size())
            return CsvRemark{reader.Line(), "the row has more than the " +
                                                std::to_string(layout.columns.size()) +
                                                " columns of the first; is the " +
                                                std::string(SeparatorName(layout.separator)) +
                                                " in it meant otherwise?" + SurplusAdvice()};
        if (layout.columns[number] != 0)
            TakeCell(*field, number, reader);
        else if (rival.empty() && !layout.rivals[number].empty() &&
                 FormOf(TrimWhiteSpace(field->text)) != NumberForm::None)
            rival = layout.rivals[number];
        blanks = blanks || (number > 0 && !field->quoted && field->text.starts_with(' '));
        headBelow = headBelow || (rows == 1 && IsColumnName(TrimWhiteSpace(field->text)));
    }
    widest = std::max(widest, number);
    if (number < layout.columns.size())
        shortRows.Add(reader.Line(), [&] {
            return "the row has " + std::to_string(number) + " of " + std::to_string(layout.columns.size()) +
                   " columns; the others are empty";
        });
    const bool withY = !IsEmpty(cells.At(ColumnY, rows));
    if (rows == 1 && layout.header && !layout.exported && withY && !IsEmpty(cells.At(ColumnX, rows)) &&
        !HasNumbers(ColumnX) && !HasNumbers(ColumnY))
        units = {reader.Line(), "X and Y are texts here and numbers below; " +
                                    std::string(headBelow ? "if this is the header, remove what is above it"
                                                          : "if these are units, remove the line") +
                                    ShownLine(reader.LineText())};
    if (!withY && RowIsAnalysed(cells, rows))
        withoutY.Add(reader.Line(),
                     [] { return "X without Y; a run takes the Y for 0 unless the row is excluded"; });
    return std::nullopt;
}

void CsvImport::TakeCell(const CsvField& field, std::size_t number, const CsvReader& reader) {
    const int column = layout.columns[number];
    const bool exact = layout.exported && field.quoted;
    const std::string_view text = exact ? field.text : TrimWhiteSpace(field.text);
    if (text.empty() || (!exact && IsMissing(text)))
        return;
    if (column == ColumnExclude) {
        cells.Set(column, rows, text);
        if (std::string_view("YyNn").find(text.front()) == std::string_view::npos)
            unclearMarks.Add(field.line, [&] {
                return layout.NameOf(number) + " is " + QuotedForMessage(text) +
                       "; a row is excluded by a mark that begins with Y or 0, by no other";
            });
        return;
    }
    const NumberForm form = FormOf(text);
    const bool comma = form == NumberForm::Comma || form == NumberForm::CommaOrGroups;
    if (exact && comma && !quotedComma)
        quotedComma = {field.line,
                       layout.NameOf(number) + ": " + QuotedForMessage(text) +
                           " has a comma; if it is decimal, import with --decimal ,; if this is meant "
                           "to be text, with --decimal ." +
                           ShownLine(reader.LineText())};
    if (!exact && !evidence.Seen(form))
        evidence.Keep(form, reader.Line(), layout.NameOf(number) + ": " + QuotedForMessage(text),
                      ShownLine(reader.LineText()));
    const bool isNumber = exact ? ReadNumber(text).has_value() : evidence.IsNumber(form);
    std::string_view value = text;
    if (isNumber && comma && !exact) {
        converted.assign(text);
        std::ranges::replace(converted, ',', '.');
        value = converted;
    }
    cells.Set(column, rows, value);
    if (isNumber)
        numbers[static_cast<std::size_t>(column)] = true;
    else if (column != ColumnRankX && column != ColumnRankY) // "." is the rank of an excluded row
        notNumbers.Add(field.line, [&] {
            return layout.NameOf(number) + ": " + QuotedForMessage(text) +
                   " is no number; a run takes it for 0";
        });
}

std::vector<CsvRemark> CsvImport::Warnings() {
    std::vector<CsvRemark> all;
    notNumbers.MoveTo(all, "cells are no numbers");
    withoutY.MoveTo(all, "rows have X and no Y");
    shortRows.MoveTo(all, "rows are short");
    unclearMarks.MoveTo(all, "marks are neither Y nor N");
    for (const int column : {ColumnX, ColumnY})
        if (!HasNumbers(column))
            all.push_back({0, "no row has a number in " + std::string(DatasetColumnName(column))});
    return all;
}

std::string CsvImport::Summary() const {
    std::string text = std::to_string(rows) + (layout.header ? " rows" : " rows, no header");
    for (std::size_t number = 0; number < layout.columns.size(); ++number)
        if (layout.columns[number] != 0)
            text.append("; ")
                .append(DatasetColumnName(layout.columns[number]))
                .append(" is ")
                .append(layout.NameOf(number));
    if (const auto left = std::ranges::count(layout.columns, 0))
        text += "; " + std::to_string(left) + (left == 1 ? " column is left out" : " columns are left out");
    text += "; separated by " + std::string(SeparatorName(layout.separator)) + ", decimal " +
            (evidence.Decimal() == ',' ? "comma" : "point");
    for (std::int32_t row = 1; row <= rows; ++row)
        if (const std::string X = CellText(cells.At(ColumnX, row)), Y = CellText(cells.At(ColumnY, row));
            !X.empty() && !Y.empty())
            return text + "; the first pair is X " + QuotedForMessage(X) + ", Y " + QuotedForMessage(Y);
    return text;
}

/// Takes the cells from the bytes of a file.
std::optional<CsvRemark> ImportText(std::string text, const CsvOptions& options, Dataset& dataset,
                                    CsvOutcome& outcome) {
    const auto isNul = [&](std::size_t at) { return at < text.size() && text[at] == '\0'; };
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") || (isNul(0) && isNul(2)) ||
        (isNul(1) && isNul(3)))
        return CsvRemark{0, "the file is in UTF-16; save it in UTF-8"};
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark))
        text.erase(0, byteOrderMark.size());
    if (!IsValidUtf8(text))
        text = FromWindows1252(text);

    CsvImport import(text, options);
    if (auto fault = import.Run())
        return fault;
    outcome.warnings = import.Warnings();
    outcome.summary = import.Summary();
    dataset.options.N = std::to_string(import.cells.RowCount());
    dataset.cells = std::move(import.cells);
    return std::nullopt;
}

} // namespace

std::string CsvOutcome::Located(const CsvRemark& remark) const {
    return file + (remark.line > 0 ? ":" + std::to_string(remark.line) : "") + ": " + remark.text;
}

CsvOutcome ImportCsv(const std::string& path, const CsvOptions& options, Dataset& dataset,
                     SessionState& session, const FileStore& files) {
    CsvOutcome outcome;
    outcome.file = path;
    const auto refuse = [&](CsvRemark fault) {
        outcome.fault = std::move(fault);
        return outcome;
    };
    std::string text;
    if (const FileResult read = files.Read(path, text); !read.done)
        return refuse({0, read.reason});
    try {
        if (auto fault = ImportText(std::move(text), options, dataset, outcome))
            return refuse(std::move(*fault));
    } catch (const std::bad_alloc&) {
        return refuse({0, NotEnoughMemory});
    }
    outcome.done = true;
    session.CurrentDatasetName = path;
    return outcome;
}

} // namespace corvane
