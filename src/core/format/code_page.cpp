#include "core/format/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace corvane {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// Bytes 80 to 9F; the rest of the code page equals the first 256 characters.
constexpr std::array<char32_t, 32> UpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t NoCharacter = 0xFFFFFFFF;

/// Reads the character at `position` and moves past it; `NoCharacter` where the bytes are no UTF-8.
char32_t NextCharacter(std::string_view utf8, std::size_t& position) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const unsigned char lead = byteAt(position);
    if (lead < 0x80) {
        ++position;
        return lead;
    }
    // The least character keeps out overlong forms.
    std::size_t length = 0;
    char32_t least = 0;
    char32_t character = 0;
    if ((lead & 0xE0) == 0xC0) {
        length = 2;
        least = 0x80;
        character = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3;
        least = 0x800;
        character = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4;
        least = 0x10000;
        character = lead & 0x07;
    } else {
        return NoCharacter;
    }
    if (utf8.size() - position < length)
        return NoCharacter;
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char next = byteAt(position + i);
        if ((next & 0xC0) != 0x80)
            return NoCharacter;
        character = (character << 6) | (next & 0x3F);
    }
    if (character < least || character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF))
        return NoCharacter;
    position += length;
    return character;
}

/// The byte of a character; -1 where the code page has none.
int CodePageByte(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<int>(character);
    const auto* const found = std::find(UpperControls.begin(), UpperControls.end(), character);
    return found == UpperControls.end() ? -1 : static_cast<int>(0x80 + (found - UpperControls.begin()));
}

} // namespace

bool IsValidUtf8(std::string_view bytes) {
    for (std::size_t position = 0; position < bytes.size();) {
        // Most text is ASCII: eight bytes at a time.
        if (std::uint64_t eight = 0; bytes.size() - position >= sizeof eight) {
            std::memcpy(&eight, bytes.data() + position, sizeof eight);
            if ((eight & 0x8080808080808080U) == 0) {
                position += sizeof eight;
                continue;
            }
        }
        if (NextCharacter(bytes, position) == NoCharacter)
            return false;
    }
    return true;
}

void AppendUtf8(std::string& text, char32_t character) {
    const auto append = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    const auto appendTail = [&](char32_t rest) { append(0x80 | (rest & 0x3F)); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        appendTail(character);
    } else if (character < 0x10000) {
        if (character >= 0xD800 && character <= 0xDFFF)
            return;
        append(0xE0 | (character >> 12));
        appendTail(character >> 6);
        appendTail(character);
    } else if (character <= 0x10FFFF) {
        append(0xF0 | (character >> 18));
        appendTail(character >> 12);
        appendTail(character >> 6);
        appendTail(character);
    }
}

std::string FromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto number = static_cast<unsigned char>(byte);
        AppendUtf8(text, number >= 0x80 && number < 0xA0 ? UpperControls[number - 0x80U] : char32_t{number});
    }
    return text;
}

std::optional<std::string> ToWindows1252(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        const char32_t character = NextCharacter(utf8, position);
        const int byte = character == NoCharacter ? -1 : CodePageByte(character);
        if (byte < 0)
            return std::nullopt;
        bytes += static_cast<char>(static_cast<unsigned char>(byte));
    }
    return bytes;
}

std::string DecodeText(std::string_view bytes) {
    if (!IsValidUtf8(bytes))
        return FromWindows1252(bytes);
    if (bytes.starts_with(ByteOrderMark))
        bytes.remove_prefix(ByteOrderMark.size());
    return std::string(bytes);
}

std::string EncodeText(std::string_view utf8) {
    const std::optional<std::string> bytes = ToWindows1252(utf8);
    // Of equal size all is ASCII, which both forms share.
    if (bytes && (bytes->size() == utf8.size() || !IsValidUtf8(*bytes)))
        return *bytes;
    // A text that begins with the mark as a character of its own needs a second one to be dropped.
    std::string text(utf8.starts_with(ByteOrderMark) && IsValidUtf8(utf8) ? ByteOrderMark : "");
    text.append(utf8);
    return text;
}

} // namespace corvane
