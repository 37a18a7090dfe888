#include "core/grid_clipboard.h"

#include "core/format/numbers.h"

#include <limits>

namespace corvane {
namespace {

constexpr const char* lineEnd = "\r\n";

std::string CopiedNumber(const CellView& cell) {
    const auto number = CellNumber(cell);
    if (!number)
        return "Error 13";
    return (CellText(cell).size() >= 2 ? "0" : "") + NumberText(*number);
}

template<class CellTextOf>
std::string JoinRows(const DataMatrix& cells, std::string_view separator, CellTextOf cellText) {
    std::string text;
    for (std::int32_t row = 1; row <= cells.RowCount(); ++row) {
        for (int column = ColumnX; column <= LastColumn; ++column) {
            if (column > ColumnX)
                text += separator;
            text += cellText(column, cells.At(column, row));
        }
        text += lineEnd;
    }
    return text;
}

/// Where the next value of a paste goes, and the values that went.
class Pasting {
public:
    Pasting(Dataset& target, GridPlace start) : dataset(target), place(start) {}

    void Take(std::string_view text) {
        const auto value = ReadNumber(text);
        if (!value) {
            if (text.find_first_not_of(' ') != std::string_view::npos)
                ++result.notNumbers;
            return;
        }
        if (!MakeRow()) {
            ++result.withoutRoom;
            return;
        }
        dataset.cells.Set(place.column, place.row, *value);
        ++result.stored;
        if (SingleColumn())
            ++place.row;
    }

    void Pass(char separator) {
        if (SingleColumn())
            return;
        if (separator == '\n') {
            place.column = ColumnX;
            if (place.row < std::numeric_limits<std::int32_t>::max() - 1)
                ++place.row;
        } else if (place.column < LastColumn) {
            ++place.column;
        }
    }

    PasteResult Finish() {
        dataset.options.N = NumberText(static_cast<double>(dataset.cells.RowCount()));
        return result;
    }

private:
    bool SingleColumn() const { return IsSet(dataset.options.SINGLE_COLUMN); }

    bool MakeRow() {
        if (place.row <= dataset.cells.RowCount())
            return true;
        if (!IsSet(dataset.options.AUTO_ROW))
            return false;
        dataset.cells.SetRowCount(place.row);
        return true;
    }

    Dataset& dataset;
    GridPlace place;
    PasteResult result;
};

} // namespace

std::string TableCell(const CellView& cell) {
    std::string text = CellText(cell);
    if (text.find_first_of("\t\r\n\"") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char character : text)
        quoted += character == '"' ? std::string("\"\"") : std::string(1, character);
    return quoted + '"';
}

std::string CopyText(const DataMatrix& cells) {
    return JoinRows(cells, ", ", [](int column, const CellView& cell) {
        return column == ColumnExclude ? CellText(cell) : CopiedNumber(cell);
    });
}

std::string CopyAsTable(const DataMatrix& cells) {
    return JoinRows(cells, "\t", [](int, const CellView& cell) { return TableCell(cell); });
}

PasteResult Paste(Dataset& dataset, std::string_view text, GridPlace current) {
    if (current.column >= ColumnRankX)
        return {};
    Pasting pasting(dataset, IsSet(dataset.options.SINGLE_COLUMN) ? current : GridPlace{});
    std::string value;
    for (const char character : text) {
        switch (character) {
        case ';':
        case ',':
        case '\t':
        case '\n':
            pasting.Take(value);
            pasting.Pass(character);
            value.clear();
            break;
        case '\r':
            break;
        default:
            value += character;
        }
    }
    pasting.Take(value);
    return pasting.Finish();
}

} // namespace corvane
