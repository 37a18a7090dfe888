#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Reads the text of a file in one pass, by lines or by comma-separated fields. Lines end with CR LF, LF or
/// CR. The text must outlive the reader.
class TextReader {
public:
    explicit TextReader(std::string_view fileText) : text(fileText) {}

    bool AtEnd() const { return position == text.size(); }
    /// The number of the line at which the next read starts, from 1.
    std::size_t LineNumber() const { return line; }

    /// The next line without its end; nothing at the end of the file.
    std::optional<std::string_view> ReadLine();

    /// The next field of a comma-and-quote record, which runs on over line ends: blanks before it are
    /// dropped, and tabs before a quote; a quoted field ends at its closing quote and a doubled quote in it
    /// stands for one; any other ends at a comma or line end, without the blanks before that. Nothing at the
    /// end of the file, unless that follows a comma.
    std::optional<std::string_view> ReadField();

private:
    std::string_view ReadQuoted();
    void SkipLineEnd();
    void SkipBlanks();

    std::string_view text;
    std::size_t position = 0;
    std::size_t line = 1;
    bool behindComma = false; ///< A field follows even at the end of the file.
    std::string unquoted;     ///< Holds a quoted field that had doubled quotes.
};

} // namespace corvane
