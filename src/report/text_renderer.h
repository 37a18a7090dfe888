#pragma once

#include "report/report.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Where the text shows a field; lines and columns count from 0, in characters.
struct FieldPosition {
    const ReportSection* section = nullptr;
    const ReportField* field = nullptr;
    std::size_t line = 0, column = 0, length = 0;
};

/// Where the text shows a listing.
struct ListingPosition {
    const ReportSection* section = nullptr;
    const Listing* listing = nullptr;
    std::size_t firstLine = 0;
};

/// Where the text shows a section.
struct SectionPosition {
    const ReportSection* section = nullptr;
    std::size_t line = 0; ///< Of its title, or of its first line where it has none.
};

/// Where everything of a report is in its text.
struct ReportLayout {
    std::vector<SectionPosition> sections;
    std::vector<FieldPosition> fields;
    std::vector<ListingPosition> listings;
};

/// The positions in a report's text. They point into the report.
ReportLayout LayOut(const Report& report);

/// One section as the text shows it, frame included; line ends CR LF.
std::string SectionText(const ReportSection& section);

/// Text with each CR LF turned into LF.
std::string WithLineFeeds(std::string_view text);

} // namespace corvane
