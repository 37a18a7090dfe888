#pragma once

#include "platform/printer.h"
#include "platform/processes.h"
#include "platform/text_editor.h"

namespace corvane {

/// Prints through the system's spooler: `lp`, else `lpr`, whichever the search path has.
class SpoolPrinter : public Printer {
public:
    FileResult Print(const std::string& text, const std::string& title) override;
};

/// The program that the desktop opens text files with; on a terminal, and without a desktop, the user's
/// VISUAL or EDITOR, else the system's `editor`.
class UserTextEditor : public TextEditor {
public:
    explicit UserTextEditor(Processes& processRunner) : processes(processRunner) {}

    bool Open(const std::string& path) override;

private:
    Processes& processes;
};

} // namespace corvane
