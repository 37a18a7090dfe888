#include "files/csv_layout.h"

#include "core/format/numbers.h"
#include "core/format/text_lists.h"
#include "files/csv_names.h"
#include "files/csv_reader.h"
#include "files/csv_separator.h"
#include "files/number_form.h"

#include <algorithm>
#include <charconv>

namespace corvane {
namespace {

constexpr std::array<std::string_view, LastColumn + 1> datasetColumnNames = {
    "", "X", "SD X", "Y", "SD Y", "Rank X", "Rank Y", "Exclude"};
/// Ranks are a result and no input, so they have none.
constexpr std::array<std::string_view, LastColumn + 1> columnOptions = {"",      "--x", "--sdx", "--y",
                                                                        "--sdy", "",    "",      "--exclude"};

using Doubt = std::optional<std::string>;

constexpr const char* titleAdvice = "; if the first line is a title or a comment, remove it";

/// The first record is a header if it holds nothing but names, and data if it holds nothing but numbers.
Doubt FindHeader(const CsvOptions& options, CsvLayout& layout) {
    bool names = false, numbers = false, others = false;
    for (const std::string& field : layout.fields)
        if (!IsMissing(field))
            (FormOf(field) != NumberForm::None ? numbers : IsName(field) ? names : others) = true;
    layout.header = options.header.value_or(names);
    if (!options.header && (others || (names && numbers)))
        return "it may hold names or values; import with --header yes or --header no";
    return std::nullopt;
}

std::string FieldsShown(const CsvLayout& layout) {
    constexpr std::size_t mostShown = 8;
    std::string text = "columns: ";
    for (std::size_t i = 0; i < std::min(layout.fields.size(), mostShown); ++i)
        text += (i > 0 ? ", " : "") + std::to_string(i + 1) +
                (layout.header ? " " + QuotedForMessage(layout.fields[i]) : "");
    return text + (layout.fields.size() > mostShown ? " to " + std::to_string(layout.fields.size()) : "");
}

/// The field that the user means by a number from 1, or by a name as it is or, failing that, in any case.
Doubt FieldMeant(const CsvLayout& layout, int column, const std::string& meant, std::size_t& field) {
    const std::string option = std::string(ColumnOption(column)) + " " + QuotedForMessage(meant) + ": ";
    std::size_t number = 0;
    const char* const end = meant.data() + meant.size();
    if (const auto read = std::from_chars(meant.data(), end, number); read.ptr == end && !meant.empty()) {
        if (read.ec != std::errc() || number < 1 || number > layout.fields.size())
            return option + "the table has " + std::to_string(layout.fields.size()) + " columns";
        field = number - 1;
        return std::nullopt;
    }
    if (!layout.header)
        return option + "the table has no header, so columns are meant by number";
    const auto find = [&](auto&& matches) {
        const auto first = std::ranges::find_if(layout.fields, matches);
        field = static_cast<std::size_t>(first - layout.fields.begin());
        return std::count_if(first, layout.fields.end(), matches);
    };
    auto found = find([&](const std::string& name) { return name == meant; });
    if (found == 0)
        found = find([&](const std::string& name) { return EqualInAnyCase(name, meant); });
    if (found == 0)
        return option + "no column has that name; " + FieldsShown(layout);
    if (found > 1)
        return option + "several columns have that name; mean one by its number";
    return std::nullopt;
}

/// In a table of two columns words in the names may tell which is X; without a header the order does.
void TakeTwoColumns(CsvLayout& layout) {
    constexpr Roles predicted{true, false}, observed{false, true};
    Roles first = predicted, second = observed;
    if (layout.header) {
        first = RolesOf(layout.fields[0]);
        second = RolesOf(layout.fields[1]);
    }
    const bool others = std::ranges::any_of(
        layout.columns, [](int column) { return column != 0 && column != ColumnX && column != ColumnY; });
    if (others)
        return;
    if (first == predicted && second == observed)
        layout.columns = {ColumnX, ColumnY};
    else if (first == observed && second == predicted)
        layout.columns = {ColumnY, ColumnX};
}

/// Columns that are left and whose names speak of predicted or observed values as those of X and Y do.
void FindRivals(const std::array<bool, LastColumn + 1>& meantByOption, CsvLayout& layout) {
    layout.rivals.assign(layout.fields.size(), "");
    for (std::size_t field = 0; layout.header && field < layout.fields.size(); ++field) {
        const Roles roles = RolesOf(layout.fields[field], true);
        const int role = roles.X ? ColumnX : ColumnY;
        if (layout.columns[field] != 0 || roles.X == roles.Y || meantByOption[static_cast<std::size_t>(role)])
            continue;
        const auto taken = std::ranges::find(layout.columns, role) - layout.columns.begin();
        layout.rivals[field] = layout.NameOf(field) + " may be " + std::string(DatasetColumnName(role)) +
                               " as well as " + layout.NameOf(static_cast<std::size_t>(taken)) +
                               "; import with --x and --y; " + FieldsShown(layout);
    }
    const auto Y =
        static_cast<std::size_t>(std::ranges::find(layout.columns, ColumnY) - layout.columns.begin());
    layout.rowNumbers = layout.header && !meantByOption[ColumnY] &&
                        std::ranges::count(layout.columns, 0) > 0 && EqualInAnyCase(layout.fields[Y], "Obs");
}

Doubt FindColumns(const CsvOptions& options, CsvLayout& layout) {
    layout.columns.assign(layout.fields.size(), 0);
    std::array<bool, LastColumn + 1> found{};
    for (std::size_t column = ColumnX; column <= LastColumn; ++column) {
        if (options.columns[column].empty())
            continue;
        std::size_t field = 0;
        if (auto doubt = FieldMeant(layout, static_cast<int>(column), options.columns[column], field))
            return doubt;
        if (const int taken = layout.columns[field]; taken != 0)
            return layout.NameOf(field) + " cannot be both " + std::string(DatasetColumnName(taken)) +
                   " and " + std::string(DatasetColumnName(static_cast<int>(column)));
        layout.columns[field] = static_cast<int>(column);
        found[column] = true;
    }
    const auto meantByOption = found;
    for (std::size_t field = 0; layout.header && field < layout.fields.size(); ++field) {
        const int column = DatasetColumnOf(layout.fields[field]);
        const auto index = static_cast<std::size_t>(column);
        if (column == 0 || layout.columns[field] != 0 || meantByOption[index])
            continue;
        const Roles roles = RolesOf(layout.fields[field]);
        if ((column == ColumnX && !roles.X) || (column == ColumnY && !roles.Y))
            return layout.NameOf(field) + " may be X or Y; import with --x and --y";
        if (found[index])
            return "several columns have the name " + std::string(DatasetColumnName(column)) +
                   (ColumnOption(column).empty()
                        ? ""
                        : "; import with " + std::string(ColumnOption(column)) + " and the number of one");
        layout.columns[field] = column;
        found[index] = true;
    }
    if (layout.fields.size() == 2 && meantByOption == std::array<bool, LastColumn + 1>{})
        TakeTwoColumns(layout);
    const bool noY = std::ranges::count(layout.columns, ColumnY) == 0;
    for (const int column : {ColumnX, ColumnY})
        if (std::ranges::count(layout.columns, column) == 0)
            return "which column is " + std::string(DatasetColumnName(column)) + "? Import with " +
                   std::string(ColumnOption(column)) +
                   (column == ColumnX && noY ? " and --y and their names or numbers; "
                                             : " and its name or number; ") +
                   FieldsShown(layout);
    FindRivals(meantByOption, layout);
    return std::nullopt;
}

/// Reads the fields of the first record.
std::optional<CsvRemark> ReadHead(std::string_view table, CsvLayout& layout) {
    CsvReader reader(table, layout.separator, layout.firstLine);
    reader.NextRecord();
    for (std::optional<CsvField> field; !field || !field->last;) {
        field = reader.ReadField();
        if (!field)
            return CsvRemark{reader.Line(), reader.Fault() + ShownLine(reader.LineText())};
        layout.bare.push_back(!field->quoted);
        layout.behindBlank.push_back(!field->quoted && !layout.fields.empty() &&
                                     field->text.starts_with(' '));
        layout.fields.emplace_back(TrimWhiteSpace(field->text));
    }
    return std::nullopt;
}

/// Whether by the separator the header tells X and Y.
bool TellsColumns(std::string_view table, const CsvOptions& options, char separator, CsvLayout& layout) {
    layout.separator = separator;
    return !ReadHead(table, layout) && !FindHeader(options, layout) && layout.header &&
           !FindColumns(options, layout);
}

/// Whether the header tells X and Y by semicolons or tabs and not by commas, as these are parts of names and
/// texts. Commas are never taken so: their rows may be of decimal commas. All records must be even, and X and
/// Y hold nothing but numbers and missing values.
bool NamesTell(std::string_view table, const CsvOptions& options, char& separator) {
    const bool tabs = table.find('\t') != std::string_view::npos;
    if (tabs == (table.find(';') != std::string_view::npos))
        return false;
    separator = tabs ? '\t' : ';';
    CsvLayout byComma, layout;
    if (TellsColumns(table, options, ',', byComma) || !TellsColumns(table, options, separator, layout))
        return false;
    constexpr std::size_t recordsSeen = 100;
    CsvReader reader(table, separator);
    for (std::size_t record = 0; record < recordsSeen && reader.NextRecord(); ++record) {
        std::size_t number = 0;
        for (std::optional<CsvField> field; !field || !field->last; ++number) {
            field = reader.ReadField();
            if (!field || number >= layout.columns.size())
                return false;
            const std::string_view text = TrimWhiteSpace(field->text);
            const bool values = layout.columns[number] == ColumnX || layout.columns[number] == ColumnY;
            if (record > 0 && values && !IsMissing(text) && FormOf(text) == NumberForm::None)
                return false;
        }
        if (number < layout.columns.size())
            return false;
    }
    return true;
}

/// What to do where the first line may be none of the table: one that begins with '#', that has fewer fields
/// than every other, or that has the names of columns below it.
std::string TitleAdvice(std::string_view table, std::size_t firstLine, std::string_view separators) {
    bool title = table.starts_with('#');
    for (const char separator : separators) {
        constexpr std::size_t recordsSeen = 100;
        CsvReader reader(table, separator, firstLine);
        std::size_t firstWidth = 0, leastWidth = std::string_view::npos;
        for (std::size_t record = 0; record < recordsSeen && reader.NextRecord(); ++record) {
            std::size_t width = 0;
            for (std::optional<CsvField> field; !field || !field->last; ++width) {
                field = reader.ReadField();
                if (!field)
                    return title ? titleAdvice : "";
                const std::string_view text = TrimWhiteSpace(field->text);
                title = title || (record == 1 && IsColumnName(text));
            }
            (record == 0 ? firstWidth : leastWidth) = record == 0 ? width : std::min(leastWidth, width);
        }
        title = title || (leastWidth != std::string_view::npos && firstWidth < leastWidth);
    }
    return title ? titleAdvice : "";
}

} // namespace

CsvRemark CsvLayout::InHead(const std::string& text) const {
    return {headLine, text + headShown};
}

std::string CsvLayout::NameOf(std::size_t field) const {
    return "column " + std::to_string(field + 1) + (header ? " " + QuotedForMessage(fields[field]) : "");
}

bool IsMissing(std::string_view text) {
    return text.empty() || (text.size() <= 3 && (EqualInAnyCase(text, "NA") || EqualInAnyCase(text, "NaN")));
}

std::string_view TrimWhiteSpace(std::string_view text) {
    constexpr std::string_view whiteSpace = " \t";
    const std::size_t first = text.find_first_not_of(whiteSpace);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(whiteSpace) + 1 - first);
}

std::string_view DatasetColumnName(int column) {
    return datasetColumnNames[static_cast<std::size_t>(column)];
}

std::string_view ColumnOption(int column) {
    return columnOptions[static_cast<std::size_t>(column)];
}

std::string_view SeparatorName(char separator) {
    return separator == ',' ? "comma" : separator == ';' ? "semicolon" : "tab";
}

std::string ShownLine(std::string_view text) {
    std::string shown(text.substr(0, 100)); // longer ones are cut
    for (std::size_t at = 0; (at = shown.find('\t', at)) != std::string::npos;)
        shown.replace(at, 1, "<tab>");
    return "; the line is " + QuotedForMessage(shown);
}

std::optional<CsvRemark> FindLayout(std::string_view table, const CsvOptions& options, CsvLayout& layout) {
    char said = 0;
    layout.start = AfterStatement(table, said);
    layout.firstLine = layout.start > 0 ? 2 : 1;
    table.remove_prefix(layout.start);
    CsvReader first(table, ',', layout.firstLine);
    if (!first.NextRecord())
        return CsvRemark{0, "the file is empty"};
    layout.headLine = first.Line();
    layout.headShown = ShownLine(first.LineText());
    const auto inFirstLine = [&](const std::string& text, std::string_view separators) {
        return layout.InHead(text + TitleAdvice(table, layout.firstLine, separators));
    };
    layout.exported = first.LineText() == ExportedHeader && options.decimal.value_or('.') == '.' &&
                      !options.separator && !options.header;
    if (layout.exported)
        layout.separator = ',';
    else if (options.separator)
        layout.separator = *options.separator;
    else if (std::string_view(",;\t").find(said) != std::string_view::npos)
        layout.separator = said;
    else if (said != 0)
        return CsvRemark{1, "its columns are separated by " + QuotedForMessage({&said, 1}) +
                                ", not by comma, semicolon or tab"};
    else if (const auto doubt = FindSeparator(table, layout.separator);
             doubt && !NamesTell(table, options, layout.separator))
        return inFirstLine(*doubt, ",;\t");

    if (auto fault = ReadHead(table, layout))
        return fault;
    const std::string_view separators(&layout.separator, 1);
    if (const auto doubt = FindHeader(options, layout))
        return inFirstLine(*doubt, separators);
    if (const auto doubt = FindColumns(options, layout))
        return inFirstLine(*doubt, separators);
    if (!layout.header || layout.separator != ',' || options.separator || options.decimal)
        return std::nullopt;
    std::vector<std::string> names;
    for (std::size_t field = 0; field < layout.fields.size(); ++field)
        if (layout.columns[field] == 0 && layout.bare[field] && !layout.fields[field].empty()) {
            names.push_back(layout.fields[field]);
            layout.blankBefore = layout.blankBefore || layout.behindBlank[field];
        }
    std::ranges::sort(names);
    layout.twins = std::ranges::adjacent_find(names) != names.end();
    return std::nullopt;
}

} // namespace corvane
