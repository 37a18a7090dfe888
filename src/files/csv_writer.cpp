#include "files/csv_writer.h"

#include "files/csv_layout.h"
#include "files/number_form.h"

namespace corvane {
namespace {

bool IsPlainNumber(std::string_view text) {
    const NumberForm form = FormOf(text);
    return form == NumberForm::Whole || form == NumberForm::Point || form == NumberForm::PointOrGroups;
}

void AppendCell(std::string& text, const std::string& cell) {
    if (cell.empty() || IsPlainNumber(cell)) {
        text += cell;
        return;
    }
    text += '"';
    for (const char character : cell)
        text.append(character == '"' ? 2 : 1, character);
    text += '"';
}

} // namespace

std::string CsvText(const DataMatrix& cells) {
    constexpr const char* lineEnd = "\r\n";
    std::string text(ExportedHeader);
    text += lineEnd;
    for (std::int32_t row = 1; row <= cells.RowCount(); ++row)
        for (int column = ColumnX; column <= LastColumn; ++column) {
            AppendCell(text, CellText(cells.At(column, row)));
            text += column == LastColumn ? lineEnd : ",";
        }
    return text;
}

} // namespace corvane
