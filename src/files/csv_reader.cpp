#include "files/csv_reader.h"

#include <utility>

namespace corvane {

CsvReader::CsvReader(std::string_view tableText, char fieldSeparator, std::size_t firstLine)
    : text(tableText), separator(fieldSeparator), blank(fieldSeparator == '\t' ? ' ' : '\t'), line(firstLine),
      recordLine(firstLine) {
    for (const char end : {separator, '\r', '\n'})
        endsField[static_cast<unsigned char>(end)] = true;
}

std::size_t CsvReader::AfterBlanks() const {
    std::size_t after = position;
    while (after < text.size() && (text[after] == ' ' || text[after] == blank))
        ++after;
    return after;
}

void CsvReader::SkipLineEnd() {
    if (text[position++] == '\r' && !AtEnd() && text[position] == '\n')
        ++position;
    ++line;
}

bool CsvReader::NextRecord() {
    for (;;) {
        recordStart = position;
        position = AfterBlanks();
        if (AtEnd())
            return false;
        if (!AtLineEnd())
            break;
        SkipLineEnd();
    }
    position = recordStart;
    recordLine = line;
    return true;
}

std::optional<CsvField> CsvReader::ReadField() {
    CsvField field;
    field.line = line;
    if (const std::size_t start = AfterBlanks(); start < text.size() && text[start] == '"') {
        position = start;
        const auto quoted = ReadQuoted();
        if (!quoted)
            return std::nullopt;
        field.text = *quoted;
        field.quoted = true;
    } else {
        const std::size_t begin = position;
        while (!AtEnd() && !endsField[static_cast<unsigned char>(text[position])])
            ++position;
        field.text = text.substr(begin, position - begin);
    }
    field.last = AtEnd() || text[position] != separator;
    if (!field.last)
        ++position;
    else if (!AtEnd())
        SkipLineEnd();
    return field;
}

std::optional<std::string_view> CsvReader::ReadQuoted() {
    const std::size_t opened = position++, openedLine = line;
    std::size_t pieceStart = position;
    bool doubled = false;
    std::string_view content;
    for (;;) {
        const std::size_t quote = text.find('"', position);
        if (quote == std::string_view::npos)
            return Broken(opened, openedLine, "a quote opens and is never closed");
        const std::string_view piece = text.substr(pieceStart, quote - pieceStart);
        for (std::size_t i = 0; i < piece.size(); ++i) // a CR LF ends one line
            line += piece[i] == '\n' || (piece[i] == '\r' && (i + 1 == piece.size() || piece[i + 1] != '\n'));
        position = quote + 1;
        if (!AtEnd() && text[position] == '"') {
            if (!std::exchange(doubled, true))
                unquoted.clear();
            unquoted.append(piece).push_back('"');
            pieceStart = ++position;
            continue;
        }
        content = doubled ? unquoted += piece : piece;
        break;
    }
    position = AfterBlanks();
    if (!AtEnd() && !endsField[static_cast<unsigned char>(text[position])])
        return Broken(position, line, "there is text between a closing quote and the end of its field");
    return content;
}

std::optional<std::string_view> CsvReader::Broken(std::size_t at, std::size_t atLine, std::string what) {
    recordStart = at == 0 ? 0 : text.find_last_of("\r\n", at - 1) + 1;
    recordLine = atLine;
    fault = std::move(what);
    return std::nullopt;
}

std::string_view CsvReader::LineText() const {
    return text.substr(recordStart, text.find_first_of("\r\n", recordStart) - recordStart);
}

} // namespace corvane
