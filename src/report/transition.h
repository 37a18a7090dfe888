#pragma once

#include "report/report.h"

namespace corvane {

struct OldField {
    Field field;
    std::string name, text;
    OldField&& Named(std::string_view machineName) && {
        name = machineName;
        return std::move(*this);
    }
    OldField&& Trimmed() &&;
    operator ReportPiece() && {
        if (name.empty())
            return {text};
        ReportField made{nullptr, name, field, text, true, {}};
        const std::string words = text.substr(0, text.find_last_not_of(' ') + 1);
        made.shown = words.substr(std::min(words.size(), words.find_first_not_of(' '))) != "n/a";
        return {{}, std::move(made)};
    }
};
OldField F(std::int32_t width, std::int32_t decimals, CellValue value);
OldField FP(std::int32_t width, std::int32_t decimals, CellValue value);
OldField F0(std::int32_t width, std::int32_t decimals, CellValue value);

inline ReportPiece OldPiece(const char* words) {
    return {words};
}
inline ReportPiece OldPiece(std::string words) {
    return {std::move(words)};
}
inline ReportPiece OldPiece(OldField&& field) {
    return std::move(field);
}
inline ReportPiece OldPiece(ReportPiece&& piece) {
    return std::move(piece);
}

template<class... Pieces>
void Line(ReportSection& section, Pieces&&... pieces) {
    ReportLine line{.kind = LineKind::Values};
    (line.pieces.push_back(OldPiece(std::forward<Pieces>(pieces))), ...);
    section.lines.push_back(std::move(line));
}
template<class... Pieces>
void OpenLine(ReportSection& section, Pieces&&... pieces) {
    Line(section, std::forward<Pieces>(pieces)...);
    section.lines.back().closed = false;
}

} // namespace corvane
