#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// A field of a table in text form.
struct CsvField {
    std::string_view text; ///< Without the quotes around it; valid until the next field is read.
    bool quoted = false;
    bool last = false;    ///< The record ends after it.
    std::size_t line = 1; ///< The line in which it begins.
};

/// Reads the records of a table field by field, in one pass (RFC 4180). A quoted field runs on over
/// separators and line ends, and a doubled quote in it stands for one; blanks around its quotes, and tabs
/// that separate nothing, are dropped. A quote inside any other field is a character like others. Lines end
/// with CR LF, LF or CR; empty and blank lines between records are skipped. The text must outlive the reader.
class CsvReader {
public:
    CsvReader(std::string_view tableText, char fieldSeparator, std::size_t firstLine = 1);

    /// Goes to the next record, of which all fields must have been read. False at the end of the table.
    bool NextRecord();
    /// The next field of the record; a record has at least one. Nothing where quotes are not as they should
    /// be, and then `Fault` says so.
    std::optional<CsvField> ReadField();

    /// The line of the fault, or else the one in which the record begins, from 1.
    std::size_t Line() const { return recordLine; }
    /// The text of that line.
    std::string_view LineText() const;
    const std::string& Fault() const { return fault; }

private:
    bool AtEnd() const { return position == text.size(); }
    bool AtLineEnd() const { return text[position] == '\r' || text[position] == '\n'; }
    std::size_t AfterBlanks() const;
    void SkipLineEnd();
    std::optional<std::string_view> ReadQuoted();
    std::optional<std::string_view> Broken(std::size_t at, std::size_t atLine, std::string what);

    std::string_view text;
    char separator;
    char blank; ///< Counts as a blank like ' '.
    std::array<bool, 256> endsField{};
    std::size_t position = 0, line;
    std::size_t recordStart = 0, recordLine;
    std::string unquoted; ///< Holds a quoted field that had doubled quotes.
    std::string fault;
};

} // namespace corvane
