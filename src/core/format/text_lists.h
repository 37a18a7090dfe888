#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Cuts a text at every occurrence of the delimiter and returns the number of pieces. They are in parts[1]
/// to parts[count]; parts[0] is unused and empty, since pieces count from 1. A delimiter at the very end
/// yields a last, empty piece. A delimiter not shorter than the text, or one that does not occur, gives one
/// piece, the whole text. An empty text or delimiter returns 0 and leaves `parts` alone.
std::int32_t SplitText(std::string_view text, std::string_view delimiter, std::vector<std::string>& parts);

/// Takes apart the answer of a dialog that selects several files, in which every name is ended by a NUL, and
/// returns the number of names.
///
/// With exactly one NUL the text is a single path: parts[0] is its folder without the last separator (kept
/// where it is the path's only one, as in a root), parts[1] the name after it; a path without a separator
/// has the folder "". Otherwise parts[0] is the folder before the first NUL and parts[1] onwards are the
/// names, each ended by a NUL; a last piece without one is not taken, so a text without any NUL gives {""}
/// and 0.
std::int32_t SplitFileList(std::string_view text, std::vector<std::string>& parts);

/// How often a character occurs in UTF-8 text; nullopt where that is more than 32767, 0 for a code point that
/// is no character.
std::optional<std::int16_t> CountChar(std::string_view text, char32_t character);

/// The number of code points; in malformed UTF-8 every byte that is no continuation byte counts.
std::size_t CharacterCount(std::string_view utf8);

/// The first or last n characters, the whole text where it has no more than n.
std::string_view FirstCharacters(std::string_view utf8, std::size_t n);
std::string_view LastCharacters(std::string_view utf8, std::size_t n);

std::string Repeat(std::string_view piece, std::size_t times);

/// Raises the 26 ASCII letters only: keys and switches are made of those, in every locale.
std::string UpperCase(std::string_view text);
bool EqualInAnyCase(std::string_view text, std::string_view other);

/// A value as a message quotes it: in single quotes, cut after 40 characters, control characters as "?".
std::string QuotedForMessage(std::string_view value);

/// Without the spaces (no other white space) at both ends.
std::string_view TrimBlanks(std::string_view text);

} // namespace corvane
