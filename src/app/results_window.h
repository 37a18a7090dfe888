#pragma once

#include "platform/dialogs.h"
#include "platform/file_store.h"
#include "platform/folders.h"
#include "platform/printer.h"
#include "platform/text_editor.h"

#include <string>
#include <string_view>

namespace corvane {

/// One report as a window holds it: CR LF text under a caption.
struct ResultsWindow {
    std::string caption;
    std::string text;
    bool open = true;
};

/// What the actions of a results window work with.
struct ResultsServices {
    FileStore& files;
    Folders& folders;
    Dialogs& dialogs;
    Printer& printer;
    TextEditor& editor;
};

/// The folder of numbered files, below the user's documents; made where it is absent.
std::string WorkingFolder(Folders& folders);

/// A caption with a file's name added: " (name)", or for more than 20 characters " (..." and its last 20.
std::string CaptionWithFile(std::string_view caption, std::string_view path);

/// Saves the text under the next free "Notes" number in `folder`, or in the working folder where that is
/// empty, extends the caption and leaves the file's path in `path`.
FileResult SaveUnderNumber(ResultsWindow& window, std::string_view folder, ResultsServices services,
                           std::string& path);

/// Sends the text to the printer; a failure shows a message titled "Info".
void PrintResults(const ResultsWindow& window, ResultsServices services);

/// Hands the text to the user's editor, in a file under the next free "Results" number. Errors are ignored.
void EditResults(const ResultsWindow& window, ResultsServices services);

/// The message of an action that failed: its source, what happened, and a code.
std::string TrappedMessage(std::string_view source, std::string_view description, int code);

} // namespace corvane
