#pragma once

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/file_store.h"
#include "platform/folders.h"
#include "platform/printer.h"
#include "platform/text_editor.h"
#include "report/report.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {

/// The run that a report or a chart comes from, and the document as that run saw it.
struct RunStamp {
    int number = 0; ///< Counts the runs of a session, from 1; 0: none.
    ClockTime time{};
    int rows = 0; ///< In use.
    std::uint64_t revision = 0, identity = 0;
};

/// One report as a window holds it, under a caption.
struct ResultsWindow {
    std::string caption;
    std::shared_ptr<const Report> report;
    RunStamp run{};
    bool open = true;
    bool cleaned = false; ///< Its text was erased.

    /// Line ends CR LF.
    std::string Text() const { return cleaned || !report ? std::string() : report->Text(); }
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
