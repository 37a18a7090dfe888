#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Whether bytes are UTF-8: no overlong form, no surrogate, nothing above U+10FFFF.
bool IsValidUtf8(std::string_view bytes);

/// Appends one character's UTF-8 bytes; a surrogate or a number above U+10FFFF appends nothing.
void AppendUtf8(std::string& text, char32_t character);

/// Windows-1252 to UTF-8. The five bytes that the code page leaves undefined (81, 8D, 8F, 90, 9D) become the
/// control characters of the same number, so that the mapping is one to one and never fails.
std::string FromWindows1252(std::string_view bytes);

/// The reverse. nullopt: a character without a place in the code page, or bytes that are no UTF-8.
std::optional<std::string> ToWindows1252(std::string_view utf8);

/// A text file's bytes as UTF-8: taken as they are, less a byte order mark, if they are UTF-8, otherwise read
/// as Windows-1252.
std::string DecodeText(std::string_view bytes);

/// The bytes under which a text is stored: Windows-1252, or UTF-8 where a character has no place there or
/// where `DecodeText` would take the Windows-1252 bytes for UTF-8. So `DecodeText(EncodeText(text))` is the
/// text again. Bytes that are no UTF-8 come back unchanged.
std::string EncodeText(std::string_view utf8);

} // namespace corvane
