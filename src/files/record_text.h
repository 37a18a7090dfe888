#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// The items of comma-and-quote records; `TextReader::ReadField` reads them.

/// Appends a text in double quotes, a double quote in it doubled.
void AppendQuoted(std::string& record, std::string_view text);

/// Appends "#TRUE#" or "#FALSE#".
void AppendTruth(std::string& record, bool value);

/// The truth value of an item: its word in any case, with or without the number signs, or a number, true
/// where it is not 0. Nothing for other text.
std::optional<bool> ReadTruth(std::string_view item);

} // namespace corvane
