#pragma once

#include "core/dataset.h"
#include "core/session_state.h"
#include "platform/file_store.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The two halves of an option line.
struct CodeValue {
    std::string_view key, value;
};

/// Parses one line: the last ":" or "=" is between key and value, and a delimiter before it ends the
/// key's beginning, so "A=B=C" is key B, value C. Without one the whole line is value. Blanks around both are
/// dropped; then one double quote or "#" is cut at each end of the value. That shortens a grid picture by one
/// "#" at every load.
CodeValue GetCodeValue(std::string_view line);

/// The message of a file that was written by a version before 2.
inline constexpr const char* OldVersionMessage =
    "The version of this file is not compatible with this version of KOV. The loading will be aborted.";

enum class LoadState {
    Loaded,
    Partial,    ///< Reading ended early; what was read before stays.
    OldVersion, ///< Refused, nothing was changed.
    Refused,    ///< Unreadable or no dataset file, nothing was changed.
};

struct LoadOutcome {
    LoadState state = LoadState::Loaded;
    std::string file;
    std::size_t line = 0;      ///< Where reading ended, from 1; 0 where the file could not be read at all.
    std::int32_t rowsRead = 0; ///< N where there are cells, else 0: the other rows are not in the file.
    std::string reason;        ///< Why, in words for the user; empty when all was read.
    std::size_t tooFewRowsLine =
        0; ///< The first line with an N below 2, which the table did not follow; or 0.

    bool Complete() const { return state == LoadState::Loaded; }
    /// "file:line: reason".
    std::string Error() const;
};

/// Reads a dataset file (.KOV): the version line, option lines in any order and case, the cells and the
/// notes. After the version was accepted the cells are emptied and the session takes the file's name; an
/// option is set as its control does. At the first value that does not convert, or at an end of the file
/// inside the cells, reading ends, and what was assigned stays. Bytes that are no valid UTF-8 are read as
/// Windows-1252.
LoadOutcome LoadFile(const std::string& path, Dataset& dataset, SessionState& session,
                     const FileStore& files);

} // namespace corvane
