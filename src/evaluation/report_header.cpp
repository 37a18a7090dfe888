#include "evaluation/report_header.h"

#include "core/format/format_picture.h"
#include "core/format/paths.h"
#include "core/format/text_lists.h"
#include "core/version.h"

namespace corvane {

std::string HeaderLine(std::string_view fileName, const ClockTime& time) {
    constexpr std::size_t longest = 78, kept = 73, width = 80, untitledBlanks = 36;
    const std::size_t length = CharacterCount(fileName);
    std::string line = "KOV v. " + VersionText();
    if (length >= longest) {
        line.append(" [...").append(LastCharacters(fileName, kept)).append("] ");
    } else {
        const std::size_t side = length == 0 ? untitledBlanks : (width - length) / 2;
        line.append(side, ' ')
            .append("[")
            .append(length == 0 ? "UNTITLED" : fileName)
            .append("]")
            .append(side, ' ');
    }
    return line + TimeText(time);
}

std::string TimeText(const ClockTime& time) {
    const CalendarTime date{time.year, time.month, time.day, time.hour, time.minute, time.second};
    return FormatPicture(date, "dd-mmm-yyyy hh:mm:ss");
}

void WriteReportHeader(RunState& run, const ClockTime& time) {
    ReportSection& section = run.report.Current();
    const std::string line = HeaderLine(FileNameOf(run.session.CurrentDatasetName), time);
    section.Text(line);
    section.Rule(CharacterCount(line), '.');
    section.Blank();
    run.header = section.lines;

    const AnalysisOptions& options = run.Options();
    if (options.LSM)
        section.Text("Regular Least-Squares Regression");
    if (options.WLSM) {
        section.Text("Weighted Least-Squares Regression");
        if (IsSet(options.UNCERTAINTY_X))
            section.Text("Ignored uncertainties in X");
        if (IsSet(options.UNCERTAINTY_Y))
            section.Text("Ignored uncertainties in Y");
    }
    if (options.ROBUSTR)
        section.Text("Robust Regression (Median)");
    if (IsSet(options.SwapXY))
        section.Text("Swapped X <=> Y");
    section.Blank();
}

} // namespace corvane
