#pragma once

#include <string>

namespace corvane {

/// The program with which the user reads and edits text files.
class TextEditor {
public:
    virtual ~TextEditor() = default;

    /// Opens a file where there is a desktop or a terminal to do it on; false where there is none.
    virtual bool Open(const std::string& path) = 0;
};

} // namespace corvane
