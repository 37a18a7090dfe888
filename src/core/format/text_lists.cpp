#include "core/format/text_lists.h"

#include "core/format/code_page.h"
#include "core/format/paths.h"

#include <algorithm>
#include <limits>

namespace corvane {

namespace {

bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

char UpperLetter(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

void SplitSinglePath(std::string_view path, std::vector<std::string>& parts) {
    const std::string name = FileNameOf(path);
    const auto separators = std::count_if(path.begin(), path.end(), IsPathSeparator);
    if (separators == 0) {
        parts = {"", std::string(path)};
        return;
    }
    const std::size_t last = path.size() - name.size() - 1;
    parts = {std::string(path.substr(0, separators == 1 ? last + 1 : last)), name};
}

} // namespace

std::int32_t SplitText(std::string_view text, std::string_view delimiter, std::vector<std::string>& parts) {
    if (text.empty() || delimiter.empty())
        return 0;
    std::vector<std::string> pieces(1);
    if (delimiter.size() < text.size()) {
        for (std::size_t cut = text.find(delimiter); cut != std::string_view::npos;
             cut = text.find(delimiter)) {
            pieces.emplace_back(text.substr(0, cut));
            text.remove_prefix(cut + delimiter.size());
        }
    }
    pieces.emplace_back(text);
    parts = std::move(pieces);
    return static_cast<std::int32_t>(parts.size() - 1);
}

std::int32_t SplitFileList(std::string_view text, std::vector<std::string>& parts) {
    const std::string_view nul("\0", 1);
    if (std::count(text.begin(), text.end(), '\0') == 1) {
        SplitSinglePath(text.substr(0, text.find(nul)), parts);
        return 1;
    }
    std::vector<std::string> pieces;
    for (std::size_t cut = text.find(nul); cut != std::string_view::npos; cut = text.find(nul)) {
        pieces.emplace_back(text.substr(0, cut));
        text.remove_prefix(cut + 1);
    }
    if (pieces.empty())
        pieces.emplace_back();
    parts = std::move(pieces);
    return static_cast<std::int32_t>(parts.size() - 1);
}

std::optional<std::int16_t> CountChar(std::string_view text, char32_t character) {
    std::string bytes;
    AppendUtf8(bytes, character);
    if (bytes.empty())
        return std::int16_t{0};
    // One character's bytes never occur inside another's, so a search by bytes finds whole characters.
    std::int32_t count = 0;
    for (std::size_t at = text.find(bytes); at != std::string_view::npos;
         at = text.find(bytes, at + bytes.size()))
        if (++count > std::numeric_limits<std::int16_t>::max())
            return std::nullopt;
    return static_cast<std::int16_t>(count);
}

std::size_t CharacterCount(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), StartsCharacter));
}

std::string_view FirstCharacters(std::string_view utf8, std::size_t n) {
    for (std::size_t i = 0; i < utf8.size(); ++i)
        if (StartsCharacter(utf8[i]) && n-- == 0)
            return utf8.substr(0, i);
    return utf8;
}

std::string_view LastCharacters(std::string_view utf8, std::size_t n) {
    std::size_t begin = utf8.size();
    while (begin > 0 && n > 0) {
        --begin;
        if (StartsCharacter(utf8[begin]))
            --n;
    }
    return utf8.substr(begin);
}

std::string Repeat(std::string_view piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        text.append(piece);
    return text;
}

bool EqualInAnyCase(std::string_view text, std::string_view other) {
    return std::equal(text.begin(), text.end(), other.begin(), other.end(),
                      [](char one, char two) { return UpperLetter(one) == UpperLetter(two); });
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperLetter);
    return upper;
}

std::string QuotedForMessage(std::string_view value) {
    constexpr std::size_t longest = 40;
    std::string shown(FirstCharacters(value, longest));
    const bool cut = shown.size() < value.size();
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; }, '?');
    return "'" + shown + (cut ? "...'" : "'");
}

std::string_view TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace corvane
