#include "evaluation/references.h"

#include <algorithm>
#include <string>
#include <vector>

namespace corvane {
namespace {

void Write(RunState& run) {
    WriteReferences(run.report.BeginSection(ReferencesSection.frame), &Paper::inReport);
}

} // namespace

void WriteReferences(ReportSection& section, int Paper::*place) {
    std::vector<const Paper*> cited;
    for (const Paper& paper : PaperTable())
        if (paper.*place > 0)
            cited.push_back(&paper);
    std::ranges::sort(cited, {}, [place](const Paper* paper) { return paper->*place; });
    for (const Paper* paper : cited)
        section.Text(std::string(paper->entry), paper->runsOn ? LineEnd::Open : LineEnd::Closed);
}

const SectionDefinition ReferencesSection{
    .frame = {"references", "REFERENCES"},
    .gate = {&AnalysisOptions::SHOW_LITERATURE},
    .meaning = "The literature that the report cites.",
    .write = Write,
};

} // namespace corvane
