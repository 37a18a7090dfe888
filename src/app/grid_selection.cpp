#include "app/grid_selection.h"

#include "core/grid_clipboard.h"

#include <algorithm>

namespace corvane {

std::vector<RowStripe> StripesOf(GridSelection selection) {
    // How many ranges begin to cover a column at a row, or end to.
    struct Edge {
        std::int32_t row;
        int firstColumn, lastColumn, step;
    };
    std::vector<Edge> edges;
    for (const GridRange& range : selection) {
        edges.push_back({range.firstRow, range.firstColumn, range.lastColumn, 1});
        edges.push_back({range.lastRow + 1, range.firstColumn, range.lastColumn, -1});
    }
    std::ranges::sort(edges, {}, &Edge::row);
    std::vector<RowStripe> stripes;
    std::array<int, LastColumn + 1> covers{};
    for (std::size_t i = 0; i < edges.size();) {
        const std::int32_t row = edges[i].row;
        for (; i < edges.size() && edges[i].row == row; ++i)
            for (int column = edges[i].firstColumn; column <= edges[i].lastColumn; ++column)
                covers[static_cast<std::size_t>(column)] += edges[i].step;
        unsigned columns = 0;
        for (int column = ColumnX; column <= LastColumn; ++column)
            columns |= covers[static_cast<std::size_t>(column)] > 0 ? 1U << column : 0U;
        if (columns == 0)
            continue;
        const std::int32_t last = edges[i].row - 1;
        if (!stripes.empty() && stripes.back().lastRow == row - 1 && stripes.back().columns == columns)
            stripes.back().lastRow = last;
        else
            stripes.push_back({row, last, columns});
    }
    return stripes;
}

GridRange BoundsOf(GridSelection selection) {
    GridRange bounds = selection.front();
    for (const GridRange& range : selection) {
        bounds.firstRow = std::min(bounds.firstRow, range.firstRow);
        bounds.lastRow = std::max(bounds.lastRow, range.lastRow);
        bounds.firstColumn = std::min(bounds.firstColumn, range.firstColumn);
        bounds.lastColumn = std::max(bounds.lastColumn, range.lastColumn);
    }
    return bounds;
}

std::string CopySelection(const DataMatrix& cells, GridSelection selection) {
    if (selection.empty())
        return {};
    const GridRange bounds = BoundsOf(selection);
    std::string text;
    for (const RowStripe& stripe : StripesOf(selection))
        for (std::int32_t row = stripe.firstRow; row <= stripe.lastRow; ++row) {
            for (int column = bounds.firstColumn; column <= bounds.lastColumn; ++column) {
                if (column > bounds.firstColumn)
                    text += '\t';
                if (stripe.Has(column))
                    text += TableCell(cells.At(column, row));
            }
            text += "\r\n";
        }
    return text;
}

} // namespace corvane
