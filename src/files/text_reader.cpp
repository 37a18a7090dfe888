#include "files/text_reader.h"

#include "core/format/text_lists.h"

#include <algorithm>
#include <utility>

namespace corvane {

void TextReader::SkipLineEnd() {
    if (AtEnd())
        return;
    const char end = text[position++];
    if (end == '\r' && !AtEnd() && text[position] == '\n')
        ++position;
    ++line;
}

void TextReader::SkipBlanks() {
    const std::size_t first = text.find_first_not_of(" \t", position);
    if (first != std::string_view::npos && text[first] == '"')
        position = first;
    else
        position = std::min(text.find_first_not_of(' ', position), text.size());
}

std::optional<std::string_view> TextReader::ReadLine() {
    if (AtEnd())
        return std::nullopt;
    const std::size_t start = position;
    position = std::min(text.find_first_of("\r\n", start), text.size());
    const std::string_view result = text.substr(start, position - start);
    SkipLineEnd();
    return result;
}

std::string_view TextReader::ReadQuoted() {
    const std::size_t start = ++position;
    std::size_t pieceStart = start;
    bool doubled = false;
    for (;; ++position) {
        if (!AtEnd() && text[position] != '"') {
            line += text[position] == '\n';
            continue;
        }
        const std::string_view piece = text.substr(pieceStart, position - pieceStart);
        if (position + 1 < text.size() && text[position + 1] == '"') {
            if (!std::exchange(doubled, true))
                unquoted.clear();
            unquoted.append(piece).push_back('"');
            pieceStart = ++position + 1;
            continue;
        }
        if (!AtEnd())
            ++position;
        if (!doubled)
            return piece;
        return unquoted += piece;
    }
}

std::optional<std::string_view> TextReader::ReadField() {
    SkipBlanks();
    if (AtEnd() && !std::exchange(behindComma, false))
        return std::nullopt;
    std::string_view field;
    if (!AtEnd() && text[position] == '"') {
        field = ReadQuoted();
        // What is between the closing quote and the next comma or line end is no part of the field.
        while (!AtEnd() && text[position] != ',' && text[position] != '\r' && text[position] != '\n')
            ++position;
    } else {
        const std::size_t start = position;
        while (!AtEnd() && text[position] != ',' && text[position] != '\r' && text[position] != '\n')
            ++position;
        field = TrimBlanks(text.substr(start, position - start));
    }
    behindComma = !AtEnd() && text[position] == ',';
    if (behindComma)
        ++position;
    else
        SkipLineEnd();
    return field;
}

} // namespace corvane
