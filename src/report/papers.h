#pragma once

#include <span>
#include <string_view>

namespace corvane {

/// A paper that the report or an explanation cites.
struct Paper {
    std::string_view key;   ///< Unique, the first author's name and the year in lower case, as "lin1989".
    std::string_view cited; ///< As a text cites it: "Lin (1989)".
    std::string_view entry; ///< The whole reference.
    /// Its place in a report's references, from 1; 0: only explanations cite it.
    int inReport = 0, inComparison = 0;
    bool runsOn = false; ///< In a report's references, its line goes straight on into the next entry.
};

std::span<const Paper> PaperTable();

/// The paper of a key, or null.
const Paper* FindPaper(std::string_view key);

} // namespace corvane
