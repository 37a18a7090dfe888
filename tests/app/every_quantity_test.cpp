#include "comparison/comparison_report.h"
#include "evaluation/report_of.h"
#include "evaluation/section_catalog.h"
#include "report/papers.h"
#include "report/quantity.h"

#include <gtest/gtest.h>
#include <set>

namespace corvane {
namespace {

using namespace testing;
using Options = AnalysisOptions;
using Keys = std::set<std::string_view>;

/// The quantities that a report shows, in its text or its JSON.
class Shown {
public:
    void Take(const Report& report) {
        for (const ReportSection& section : report.Sections()) {
            for (const ReportField& field : section.unprinted)
                Take(field.place);
            for (const ReportLine& line : section.lines)
                Take(section, line);
        }
    }
    const Keys& Quantities() const { return keys; }

private:
    void Take(const Place* place) { keys.insert(place->quantity); }
    void Take(const ReportSection& section, const ReportLine& line) {
        std::size_t column = line.firstColumn;
        for (const ReportPiece& piece : line.pieces)
            if (piece.field) {
                ++column;
                Take(piece.field->place);
            }
        if (line.kind == LineKind::TableRow) {
            EXPECT_LE(column, section.tables.at(line.table).columns.size())
                << section.id << ": " << line.Text();
        }
        if (line.listing)
            for (const ListingColumn& listed : line.listing->columns)
                Take(listed.place);
    }

    Keys keys;
};

/// Every section, by a method, with every column.
void TakeFullReport(Shown& shown, Workbench bench, OptionRow::Member method) {
    TickAllGates(bench.dataset, bench.session);
    for (int column = 1; column <= 14; ++column)
        ChangeOption(bench.dataset, bench.session, *FindOption("RESIDUE_" + std::to_string(column)), true);
    const RunResult run =
        bench.Set({{method, true}, {&Options::TRESHOLD_RANK, "4"}, {&Options::TRESHOLD_XY, "3"}}).Evaluate();
    ASSERT_EQ(run.end, RunEnd::Finished);
    shown.Take(run.report);
    for (const RunWindow& window : run.windows)
        shown.Take(window.content);
}

std::vector<const SectionDefinition*> AllSections() {
    std::vector<const SectionDefinition*> sections;
    for (const auto catalog : {SectionCatalog(), ComparisonSections()})
        sections.insert(sections.end(), catalog.begin(), catalog.end());
    return sections;
}

TEST(EveryQuantity, IsReachedAndHasAnEntryThatSaysWhatItIs) {
    Shown shown;
    TakeFullReport(shown, Workbench().OpenExample("mtcars.KOV"), &Options::LSM);
    TakeFullReport(shown, Workbench().OpenExample("pearson.KOV"), &Options::WLSM);
    // One pair is equal to the threshold.
    const TextPairs pairs = {{"1", "2"}, {"3", "3"}, {"4", "6"}, {"5", "4"}, {"7", "8"}};
    TakeFullReport(shown, Workbench().OpenPairs("pairs.KOV", pairs), &Options::ROBUSTR);
    ComparisonSnapshot snapshot;
    for (const char* name : {"/mtcars.KOV", "/mtcars_wt.KOV"})
        snapshot.files.push_back({CORVANE_EXAMPLES + std::string(name), true});
    RecordingProgress progress;
    const ComparisonResult comparison = CompareModels(snapshot, NativeFileStore(), progress);
    ASSERT_TRUE(comparison.finished) << comparison.fault;
    shown.Take(comparison.report);

    for (const Quantity& quantity : QuantityTable()) {
        EXPECT_TRUE(shown.Quantities().contains(quantity.key)) << quantity.key << ": no report shows it";
        EXPECT_FALSE(quantity.meaning.empty() || quantity.formula.empty()) << quantity.key;
    }
    for (const std::string_view key : shown.Quantities())
        EXPECT_TRUE(FindQuantity(key)) << key << ": no entry";
    for (const SectionDefinition* section : AllSections())
        for (const auto& table : section->frame.places)
            for (const Place& place : table)
                EXPECT_TRUE(FindQuantity(place.quantity)) << section->frame.id << "." << place.name;
}

TEST(EverySection, TellsOfItselfUnderAnIdOfItsOwn) {
    for (const auto catalog : {SectionCatalog(), ComparisonSections()}) {
        Keys ids;
        for (const SectionDefinition* section : catalog) {
            EXPECT_TRUE(ids.insert(section->frame.id).second) << section->frame.id << ": twice";
            EXPECT_EQ(section->meaning.empty(), section->frame.title.empty()) << section->frame.id;
            for (std::string_view left = section->papers; !left.empty();) {
                const std::size_t end = std::min(left.find("; "), left.size());
                EXPECT_TRUE(FindPaper(left.substr(0, end))) << section->frame.id << ": " << left;
                left.remove_prefix(std::min(end + 2, left.size()));
            }
        }
    }
}

/// Of a section with two gates the first is its own.
TEST(EverySection, HasAGateOfTheOptionTableAndEveryGateASection) {
    Keys gates, used;
    for (const OptionRow& row : OptionTable())
        if (row.role == OptionRole::Gate)
            gates.insert(row.key);
    for (const SectionDefinition* section : SectionCatalog()) {
        if (section->gate.option)
            used.insert(OptionOf(section->gate.option).key);
        if (section->gate.second) {
            EXPECT_TRUE(gates.contains(OptionOf(section->gate.second).key)) << section->frame.id;
        }
    }
    EXPECT_EQ(used, gates);
}

} // namespace
} // namespace corvane
