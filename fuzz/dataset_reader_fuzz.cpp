#include "core/format/code_page.h"
#include "core/format/numbers.h"
#include "core/option_table.h"
#include "files/dataset_reader.h"
#include "files/dataset_writer.h"
#include "fuzzing.h"
#include "support/fakes.h"

// The input is a dataset file.

namespace corvane {
namespace {

using fuzzing::Require;

struct Loaded {
    Dataset dataset;
    SessionState session;
    LoadOutcome outcome;
};

Loaded Load(const std::string& bytes) {
    testing::MemoryFiles files;
    files.files["d.KOV"] = bytes;
    Loaded loaded;
    loaded.outcome = LoadFile("d.KOV", loaded.dataset, loaded.session, files);
    return loaded;
}

/// Whether N is what the table has. A refused N stays in its box, and then the file holds other rows.
bool RowsAreCounted(const Dataset& dataset) {
    return ToInteger32(LeadingNumber(dataset.options.N)) == dataset.cells.RowCount();
}

void RequireSameCells(const Dataset& before, const Dataset& after) {
    Require(after.cells.RowCount() == before.cells.RowCount(), "the rows come back");
    for (std::int32_t row = 1; row <= before.cells.RowCount(); ++row)
        for (int column = ColumnX; column <= LastColumn; ++column)
            Require(CellText(after.cells.At(column, row)) == CellText(before.cells.At(column, row)),
                    "a cell comes back", CellText(before.cells.At(column, row)));
}

/// What the file holds of the options.
std::string OptionLines(const Dataset& dataset) {
    Dataset optionsOnly;
    optionsOnly.options = dataset.options;
    return DatasetFileText(optionsOnly);
}

void RequireRoundTrips(Dataset dataset) {
    std::string options = OptionLines(dataset);
    // A quote or "#" and the blanks at either end of an option are cut at every load, so that its text comes
    // to rest at the latest when nothing is left of it. Empty limits beside a probability of 0 grow once, to
    // 0.
    int grown = 0;
    for (bool rests = false; !rests;) {
        const Loaded again = Load(EncodeText(DatasetFileText(dataset)));
        Require(again.outcome.Complete(), "a written file is read to its end", again.outcome.reason);
        Require(again.dataset.notes == dataset.notes, "the notes come back", dataset.notes);
        RequireSameCells(dataset, again.dataset);
        const std::string optionsAgain = OptionLines(again.dataset);
        rests = optionsAgain == options;
        Require(rests || optionsAgain.size() < options.size() || ++grown == 1, "the options come to rest",
                optionsAgain);
        options = optionsAgain;
        dataset = again.dataset;
    }
}

} // namespace
} // namespace corvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvane;
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Loaded loaded = Load(text);
    const LoadOutcome& outcome = loaded.outcome;
    Require(outcome.Complete() == outcome.reason.empty(), "what ends early says why", outcome.Error());
    Require(outcome.line <= fuzzing::LineCount(text) + 1, "a reason names a line of the file",
            outcome.Error());
    if (outcome.state == LoadState::Refused || outcome.state == LoadState::OldVersion) {
        Require(OptionLines(loaded.dataset) == OptionLines(Dataset{}), "a refused file changes no option");
        Require(loaded.dataset.cells.LastFilledRow() == 0, "a refused file changes no cell");
    }
    constexpr std::int32_t fewEnoughRows = 100;
    if (RowsAreCounted(loaded.dataset) && loaded.dataset.cells.RowCount() <= fewEnoughRows)
        RequireRoundTrips(loaded.dataset);
    return 0;
}
