#pragma once

#include "platform/file_store.h"

#include <string>

namespace corvane {

class Printer {
public:
    virtual ~Printer() = default;

    /// Sends a text (UTF-8, line ends LF) to the printer as it is, in a fixed-pitch font, under a job
    /// title.
    virtual FileResult Print(const std::string& text, const std::string& title) = 0;
};

} // namespace corvane
