#include "app/grid_actions.h"

#include "core/evaluation_arrays.h"
#include "core/option_changes.h"

#include <algorithm>

namespace corvane {
namespace {

std::string Counted(std::size_t count, std::string_view noun) {
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

template<class Visit>
void ForEachCell(GridSelection selection, Visit visit) {
    for (const RowStripe& stripe : StripesOf(selection))
        for (int column = ColumnX; column <= LastColumn; ++column)
            if (stripe.Has(column))
                for (std::int32_t row = stripe.firstRow; row <= stripe.lastRow; ++row)
                    visit(GridPlace{row, column});
}

template<class Visit>
void ForEachRow(GridSelection selection, Visit visit) {
    for (const RowStripe& stripe : StripesOf(selection))
        for (std::int32_t row = stripe.firstRow; row <= stripe.lastRow; ++row)
            visit(row);
}

/// Makes the cells of a changed copy, and how many rows there are, the document's.
void TakeTable(Document& document, std::string name, std::optional<GridRange> place, const Dataset& changed) {
    document.Change({std::move(name), place}, [&](Dataset& dataset, SessionState&) {
        dataset.cells = changed.cells;
        dataset.options.N = changed.options.N;
    });
}

void EmptyCells(Document& document, GridSelection selection, const std::string& verb) {
    Dataset changed = document.Data();
    GridPlace last;
    std::size_t count = 0;
    ForEachCell(selection, [&](GridPlace at) {
        if (IsEmpty(document.Data().cells.At(at.column, at.row)))
            return;
        changed.cells.Set(at.column, at.row, {});
        last = at;
        ++count;
    });
    if (count > 0)
        TakeTable(document,
                  verb + " " + (count == 1 ? PlaceName(changed.options, last) : Counted(count, "cell")),
                  BoundsOf(selection), changed);
}

/// "Number of rows 19 to 25".
std::string RowsName(const Document& document, const std::string& text) {
    const OptionRow& row = OptionOf(&AnalysisOptions::N);
    return std::string(row.caption) + " " + document.Data().options.N + " to " + text;
}

/// Where a cell comes in an ascending order.
struct SortKey {
    int kind = 2; ///< Number, text, empty.
    double number = 0;
    std::string_view text{};
    std::int32_t row = 0;

    SortKey(const CellView& cell, std::int32_t ofRow) : row(ofRow) {
        if (IsEmpty(cell))
            return;
        const auto value = CellNumber(cell);
        kind = value ? 0 : 1;
        number = value.value_or(0);
        if (!value)
            text = std::get<std::string_view>(cell);
    }
};

bool SortsBefore(const SortKey& first, const SortKey& second, bool descending) {
    if (first.kind != second.kind && (!descending || first.kind == 2 || second.kind == 2))
        return first.kind < second.kind;
    const SortKey &low = descending ? second : first, &high = descending ? first : second;
    if (low.kind != high.kind)
        return low.kind < high.kind;
    return low.number != high.number ? low.number < high.number : low.text < high.text;
}

} // namespace

std::string PlaceName(const AnalysisOptions& options, GridPlace place) {
    return std::string(GridCaption(options, place.column)) + ", row " + std::to_string(place.row);
}

std::string Shortened(const std::string& text) {
    constexpr std::size_t longest = 40;
    std::size_t characters = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool begins = (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80; // in UTF-8
        if (begins && ++characters > longest)
            return text.substr(0, at) + "…";
    }
    return text;
}

void ClearCells(Document& document, GridSelection selection) {
    EmptyCells(document, selection, "Clear");
}

void CutCells(Document& document, GridSelection selection) {
    EmptyCells(document, selection, "Cut");
}

void FillDown(Document& document, GridSelection selection) {
    Dataset changed = document.Data();
    std::size_t count = 0;
    for (const GridRange& range : selection) {
        const std::int32_t from = range.firstRow == range.lastRow ? range.firstRow - 1 : range.firstRow;
        if (from < 1)
            continue;
        for (int column = range.firstColumn; column <= range.lastColumn; ++column)
            for (std::int32_t row = from + 1; row <= range.lastRow; ++row, ++count)
                changed.cells.Set(column, row, document.Data().cells.At(column, from));
    }
    if (count > 0)
        TakeTable(document, "Fill down " + Counted(count, "cell"), BoundsOf(selection), changed);
}

bool AllExcluded(const DataMatrix& cells, GridSelection selection) {
    for (const RowStripe& stripe : StripesOf(selection))
        for (std::int32_t row = stripe.firstRow; row <= stripe.lastRow; ++row)
            if (!RowIsExcluded(cells, row))
                return false;
    return true;
}

void ExcludeRows(Document& document, GridSelection selection, bool exclude) {
    Dataset changed = document.Data();
    std::size_t count = 0;
    std::int32_t last = 0;
    ForEachRow(selection, [&](std::int32_t row) {
        if (RowIsExcluded(document.Data().cells, row) == exclude)
            return;
        changed.cells.Set(ColumnExclude, row, exclude ? CellView("Y") : CellView());
        last = row;
        ++count;
    });
    if (count == 0)
        return;
    GridRange place = BoundsOf(selection);
    place.firstColumn = place.lastColumn = ColumnExclude;
    TakeTable(document,
              std::string(exclude ? "Exclude " : "Include ") +
                  (count == 1 ? "row " + std::to_string(last) : Counted(count, "row")),
              place, changed);
}

PastedNumbers PasteNumbers(Dataset dataset, std::string_view text, GridPlace current) {
    PastedNumbers pasted{std::move(dataset), current, {}};
    pasted.result = Paste(pasted.dataset, text, current);
    if (!IsSet(pasted.dataset.options.SINGLE_COLUMN))
        pasted.start = {};
    pasted.commas = static_cast<std::size_t>(std::ranges::count(text, ','));
    bool filled = false;
    for (const char character : text) {
        if (character == '\n')
            filled = false;
        else if (!filled && character != ' ' && character != '\r' && character != '\t') {
            filled = true;
            ++pasted.lines;
        }
    }
    return pasted;
}

void TakePasted(Document& document, const PastedNumbers& pasted) {
    GridRange place{pasted.start.row, pasted.dataset.cells.RowCount(), ColumnX, LastColumn};
    if (IsSet(pasted.dataset.options.SINGLE_COLUMN)) {
        place.firstColumn = place.lastColumn = pasted.start.column;
        place.lastRow = pasted.start.row + static_cast<std::int32_t>(pasted.result.stored) - 1;
    }
    if (pasted.result.stored > 0)
        TakeTable(document, "Paste " + Counted(pasted.result.stored, "value"), place, pasted.dataset);
}

void PutTable(Document& document, const DataMatrix& table, std::int32_t firstRow) {
    const std::int32_t rows = table.LastFilledRow();
    Dataset changed = document.Data();
    const std::int32_t lastRow = firstRow + rows - 1;
    if (lastRow > changed.cells.RowCount()) {
        changed.options.N = std::to_string(lastRow);
        ApplyRowCount(changed);
    }
    std::size_t count = 0;
    for (int column = ColumnX; column <= LastColumn; ++column) {
        std::int32_t row = 1;
        while (row <= rows && IsEmpty(table.At(column, row)))
            ++row;
        if (row > rows)
            continue;
        for (row = 1; row <= rows; ++row) {
            changed.cells.Set(column, firstRow + row - 1, table.At(column, row));
            count += IsEmpty(table.At(column, row)) ? 0 : 1;
        }
    }
    if (count > 0)
        TakeTable(document, "Paste " + Counted(count, "value"),
                  GridRange{firstRow, lastRow, ColumnX, LastColumn}, changed);
}

RowCountResult RemoveInvalidRows(Document& document) {
    Dataset changed = document.Data();
    const RowCountResult result = RemoveEmptyRows(changed);
    const auto removed =
        static_cast<std::size_t>(document.Data().cells.RowCount() - changed.cells.RowCount());
    TakeTable(document, "Remove " + (removed > 0 ? Counted(removed, "invalid row") : "invalid rows"), {},
              changed);
    return result;
}

RowCountResult ApplyNumberOfRows(Document& document, const std::string& text) {
    Dataset changed = document.Data();
    changed.options.N = text;
    const RowCountResult result = ApplyRowCount(changed);
    if (result == RowCountResult::Applied)
        TakeTable(document, RowsName(document, text), {}, changed);
    return result;
}

void SwapXToY(Document& document, bool swapped) {
    const OptionRow& row = OptionOf(&AnalysisOptions::SwapXY);
    document.Change({.words = std::string(row.caption), .replaces = true},
                    [&](Dataset& dataset, SessionState& session) {
                        ChangeOption(dataset, session, row, static_cast<std::int16_t>(swapped ? 1 : 0));
                    });
}

void SortRows(Document& document, int column, bool descending) {
    const Dataset& present = document.Data();
    const std::int32_t last = present.cells.LastFilledRow();
    std::vector<SortKey> keys;
    keys.reserve(static_cast<std::size_t>(last));
    for (std::int32_t row = 1; row <= last; ++row)
        keys.emplace_back(present.cells.At(column, row), row);
    std::ranges::stable_sort(keys, [descending](const SortKey& first, const SortKey& second) {
        return SortsBefore(first, second, descending);
    });
    Dataset changed = present;
    for (int each = ColumnX; each <= LastColumn; ++each)
        for (std::int32_t row = 1; row <= last; ++row)
            changed.cells.Set(each, row, present.cells.At(each, keys[static_cast<std::size_t>(row) - 1].row));
    TakeTable(document, "Sort by " + std::string(GridCaption(present.options, column)), {}, changed);
}

void EmptyDataset(Dataset& dataset, SessionState& session) {
    dataset.cells.Clear();
    dataset.notes.clear();
    ChangeOption(dataset, session, OptionOf(&AnalysisOptions::NOTES_BLUE), std::int16_t{0});
    session.CurrentDatasetName.clear();
}

void ClearDataset(Document& document) {
    document.Change({.words = "Clear the dataset", .replaces = true}, EmptyDataset);
}

} // namespace corvane
