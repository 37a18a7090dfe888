#pragma once

#include "core/data_matrix.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// What the user says of a table; the rest is found by looking at it.
struct CsvOptions {
    std::array<std::string, LastColumn + 1> columns; ///< By `Column`: the name or number of the table's own.
    std::optional<char> separator;                   ///< ',', ';' or '\t'.
    std::optional<char> decimal;                     ///< '.' or ','.
    std::optional<bool> header;
    bool everyRemark = false; ///< Otherwise the first ten of each kind are kept, and their count.
};

/// Something to tell the user about a line of a table; line 0: about all of it.
struct CsvRemark {
    std::size_t line = 0;
    std::string text;
};

/// The first line of a table that `CsvText` wrote.
inline constexpr std::string_view ExportedHeader = "X,SD X,Y,SD Y,Rank X,Rank Y,Exclude";

/// How the columns of a table correspond to those of the dataset.
struct CsvLayout {
    std::size_t start = 0;     ///< After a first line "sep=;".
    std::size_t firstLine = 1; ///< The number of the line there.
    char separator = ',';
    bool header = false;
    std::size_t headLine = 1;
    bool exported = false;           ///< By `CsvText`: what it put in quotes is text to the letter.
    std::vector<std::string> fields; ///< Of the first record.
    std::vector<bool> bare;          ///< For each whether it has no quotes.
    std::vector<bool> behindBlank;   ///< And a blank before it.
    std::vector<int> columns;        ///< For each of them the `Column` that it fills, or 0.
    std::vector<std::string> rivals; ///< For each why it is meant for X or Y if it holds numbers, or "".
    bool rowNumbers = false;         ///< Whether Y, by its name, may be the number of the row.
    /// Whether a comma in a name without quotes may have split it: two names that fill no column are the
    /// same, or one has a blank before it.
    bool twins = false, blankBefore = false;
    std::string headShown; ///< After a message on the first record.

    /// A message on the first record.
    CsvRemark InHead(const std::string& text) const;
    /// "column 2 'mpg'" for 1.
    std::string NameOf(std::size_t field) const;
};

/// Empty, NA or NaN in any case.
bool IsMissing(std::string_view text);
/// Without the blanks and tabs at both ends.
std::string_view TrimWhiteSpace(std::string_view text);

std::string_view DatasetColumnName(int column);
/// The option of `corvane import` that names the column's source, or "".
std::string_view ColumnOption(int column);
/// The separator in words.
std::string_view SeparatorName(char separator);
/// The text of a line as a message shows it, with its tabs in words.
std::string ShownLine(std::string_view text);

/// Finds the separator, the header and the columns. A column for which the options name none is found by its
/// own name in the header, in any case; blanks, "_" and a unit after the name aside, and "predicted" and
/// "observed" are X and Y. In a table of two columns words in the names may tell, too, and without a header
/// it is X and Y. Returns what is missing or may be read in two ways, or nothing.
std::optional<CsvRemark> FindLayout(std::string_view table, const CsvOptions& options, CsvLayout& layout);

} // namespace corvane
