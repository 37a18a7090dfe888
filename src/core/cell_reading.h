#pragma once

#include "core/data_matrix.h"
#include "core/grid_clipboard.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace corvane {

/// How a run reads a cell that the user may have meant otherwise.
enum class CellReading {
    AsItIs,         ///< As its number; or the run has no use for it, as in an excluded row.
    EmptyAsZero,    ///< An empty Y beside an X: 0.
    TextAsZero,     ///< A text that is no number: 0.
    LeavesTheRowOut ///< An empty X in a row that has something else: the run passes the row over.
};

/// How a run reads a cell of the columns 1 to 7. An empty SD is the 0 that it is meant to be.
CellReading ReadingOf(const DataMatrix& cells, std::int32_t row, int column);

inline bool IsUnreadable(CellReading reading) {
    return reading == CellReading::EmptyAsZero || reading == CellReading::TextAsZero;
}

/// The rows of a table by what a run does with them.
struct RowCounts {
    std::int32_t inUse = 0;      ///< The n of a run.
    std::int32_t excluded = 0;   ///< With an exclusion mark.
    std::int32_t unreadable = 0; ///< Those in use with a cell that counts as 0 unmeant.

    bool operator==(const RowCounts&) const = default;
};

/// Counts the rows of a table and keeps the counts as the table changes. Only blocks of rows that differ from
/// the last time are read again, and in slices, so that a window counts a million rows between two frames.
class RowCounter {
public:
    /// The table as it is now; what changed in it is to be counted.
    void Follow(const DataMatrix& table);
    /// Counts about so many further rows; true: there is nothing left to count.
    bool Count(std::int32_t rows);
    bool Complete() const { return uncounted == 0; }
    /// Of the rows that are counted so far; of all once that is complete.
    const RowCounts& Counts() const { return total; }

    /// The nearest unreadable cell after a place, row by row, or before it; round the table's end the search
    /// goes on from the other one. nullopt: there is none. Counts what it needs.
    std::optional<GridPlace> NextUnreadable(GridPlace from, bool forward);

private:
    struct Block {
        RowCounts counts;
        std::int32_t lastRow = 0; ///< Of the table when it was counted, within the block; 0: not counted.
    };

    std::size_t BlockCount() const;
    std::int32_t LastRowOf(std::size_t block) const;
    bool SameAsBefore(const DataMatrix& table, std::size_t block) const;
    void CountBlock(std::size_t block);
    void Forget(Block& block);

    DataMatrix cells; ///< As last followed; shares its blocks with the table.
    std::vector<Block> blocks;
    std::size_t uncounted = 0, cursor = 0;
    RowCounts total;
};

} // namespace corvane
