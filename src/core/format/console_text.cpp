#include "core/format/console_text.h"

#include "core/format/code_page.h"
#include "core/format/text_lists.h"

#include <algorithm>

namespace corvane {
namespace {

constexpr std::size_t columns = 80;

/// The bytes of the text's first character; 0 where they are no UTF-8.
std::size_t CharacterLength(std::string_view text) {
    for (std::size_t length = 1; length <= std::min<std::size_t>(text.size(), 4); ++length)
        if (IsValidUtf8(text.substr(0, length)))
            return length;
    return 0;
}

/// One character's UTF-8 steers a terminal.
bool Steers(std::string_view character) {
    const auto within = [&](std::string_view first, std::string_view last) {
        return character.size() == first.size() && character >= first && character <= last;
    };
    return within(std::string_view("\0", 1), "\x1F") || character == "\x7F" ||
           within("\xC2\x80", "\xC2\x9F") ||         // C1
           within("\xE2\x80\xAA", "\xE2\x80\xAE") || // U+202A to U+202E
           within("\xE2\x81\xA6", "\xE2\x81\xA9");   // U+2066 to U+2069
}

/// The number of a character of at most three bytes.
unsigned CodePoint(std::string_view character) {
    unsigned code = static_cast<unsigned char>(character[0]);
    if (character.size() > 1)
        code &= character.size() == 2 ? 0x1FU : 0x0FU;
    for (const char byte : character.substr(1))
        code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    return code;
}

void AppendEscape(std::string& text, std::string_view form, unsigned code, std::size_t digits) {
    text += form;
    while (digits-- > 0)
        text += "0123456789ABCDEF"[code >> (4 * digits) & 0xFU];
}

void AppendWrittenOut(std::string& text, std::string_view character) {
    constexpr std::string_view named = "\n\t\r";
    if (const std::size_t at = named.find(character[0]); at != std::string_view::npos)
        text.append("\\") += "ntr"[at];
    else
        AppendEscape(text, "\\u", CodePoint(character), 4);
}

void AppendRows(std::string& text, std::string_view line) {
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    if (const std::size_t again = line.rfind('\r'); again != std::string_view::npos)
        line.remove_prefix(again + 1);
    while (!line.empty()) {
        const std::string_view row = FirstCharacters(line, columns);
        line.remove_prefix(row.size());
        if (const std::string_view shown = TrimBlanks(row); !shown.empty())
            text.append(shown).append("\r\n");
    }
}

} // namespace

std::string ForTerminal(std::string_view text, std::string_view kept) {
    std::string shown;
    shown.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        if (length == 0)
            AppendEscape(shown, "\\x", CodePoint(character), 2);
        else if (Steers(character) && kept.find(character) == std::string_view::npos)
            AppendWrittenOut(shown, character);
        else
            shown += character;
        text.remove_prefix(character.size());
    }
    return shown;
}

std::string ReadConsoleText(std::string_view output) {
    std::string text;
    while (!output.empty()) {
        const std::size_t end = output.find('\n');
        AppendRows(text, output.substr(0, end));
        output.remove_prefix(end == std::string_view::npos ? output.size() : end + 1);
    }
    return text;
}

} // namespace corvane
