#include "core/format/numbers.h"
#include "files/csv_import.h"
#include "files/csv_writer.h"
#include "fuzzing.h"
#include "support/fakes.h"

// The first line of the input is what the user says of the table, the table follows: "," ";" "t" its
// separator, "p" "c" its decimal mark, "h" "n" with or without a header, "1x" "2Y" the names of X and Y, "a"
// every remark.

namespace corvane {
namespace {

using fuzzing::Require;

CsvOptions ReadOptions(std::string_view line) {
    CsvOptions options;
    for (std::size_t at = 0; at < line.size(); ++at)
        switch (const char said = line[at]) {
        case ',':
        case ';':
            options.separator = said;
            break;
        case 't':
            options.separator = '\t';
            break;
        case 'p':
        case 'c':
            options.decimal = said == 'p' ? '.' : ',';
            break;
        case 'h':
        case 'n':
            options.header = said == 'h';
            break;
        case 'a':
            options.everyRemark = true;
            break;
        default:
            if (said >= '1' && said <= '7' && at + 1 < line.size())
                options.columns[static_cast<std::size_t>(said - '0')] = line[++at];
        }
    return options;
}

CsvOutcome Import(const std::string& table, const CsvOptions& options, Dataset& dataset) {
    testing::MemoryFiles files;
    files.files["t.csv"] = table;
    SessionState session;
    return ImportCsv("t.csv", options, dataset, session, files);
}

void RequireNothingChanged(const CsvOutcome& outcome, const Dataset& dataset, const std::string& table) {
    constexpr std::size_t longestReason = 800;
    Require(!outcome.fault.text.empty(), "a refused table has a reason");
    Require(outcome.fault.text.size() < longestReason, "a reason is short", outcome.fault.text);
    Require(outcome.fault.line <= fuzzing::LineCount(table), "a reason names a line of the table",
            outcome.Located(outcome.fault));
    Require(dataset.cells.LastFilledRow() == 0 && dataset.options.N == Dataset{}.options.N,
            "a refused table changes nothing", outcome.fault.text);
}

/// How many cells the warnings tell of that are no numbers.
std::size_t NotNumbersTold(const CsvOutcome& outcome) {
    std::size_t told = 0;
    for (const CsvRemark& warning : outcome.warnings) {
        told += warning.text.ends_with("is no number; a run takes it for 0");
        if (warning.text.find("cells are no numbers in all") != std::string::npos)
            told = static_cast<std::size_t>(LeadingNumber(warning.text));
    }
    return told;
}

std::size_t NotNumbers(const DataMatrix& cells) {
    std::size_t count = 0;
    for (std::int32_t row = 1; row <= cells.RowCount(); ++row)
        for (int column = ColumnX; column < ColumnRankX; ++column) {
            const CellView cell = cells.At(column, row);
            count += !IsEmpty(cell) && !CellNumber(cell);
        }
    return count;
}

void RequireRoundTrip(const DataMatrix& cells) {
    const std::string table = CsvText(cells);
    Dataset again;
    CsvOutcome back = Import(table, {}, again);
    if (back.fault.text.find("to be text, with --decimal .") != std::string::npos) {
        CsvOptions pointed;
        pointed.decimal = '.';
        back = Import(table, pointed, again);
    }
    Require(back.done, "an exported table is read", back.fault.text);
    Require(again.cells.RowCount() == cells.RowCount(), "the rows come back", table);
    for (std::int32_t row = 1; row <= cells.RowCount(); ++row)
        for (int column = ColumnX; column <= LastColumn; ++column)
            Require(CellText(again.cells.At(column, row)) == CellText(cells.At(column, row)),
                    "a cell comes back", CellText(cells.At(column, row)));
}

} // namespace
} // namespace corvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvane;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t lineEnd = input.find('\n');
    if (lineEnd == std::string_view::npos)
        return 0;
    const std::string table(input.substr(lineEnd + 1));
    Dataset dataset;
    const CsvOutcome outcome = Import(table, ReadOptions(input.substr(0, lineEnd)), dataset);
    for (const CsvRemark& warning : outcome.warnings)
        Require(!warning.text.empty() && warning.line <= fuzzing::LineCount(table),
                "a warning has words and a line of the table", outcome.Located(warning));
    if (!outcome.done) {
        RequireNothingChanged(outcome, dataset, table);
        return 0;
    }
    Require(!outcome.summary.empty(), "an import says what it took");
    Require(NotNumbersTold(outcome) == NotNumbers(dataset.cells), "each cell that is no number is told");
    RequireRoundTrip(dataset.cells);
    return 0;
}
