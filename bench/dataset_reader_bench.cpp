// Reading a dataset file of 10^6 rows beside a plain line count of the same bytes, and the selection of its
// rows, which turns the cells into numbers. The same rows as tables in text form.

#include "core/evaluation_arrays.h"
#include "core/session_state.h"
#include "files/csv_import.h"
#include "files/csv_writer.h"
#include "files/dataset_reader.h"
#include "files/dataset_writer.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>
#include <random>

namespace corvane {
namespace {

constexpr std::int32_t rowCount = 1'000'000;

class OneFile : public FileStore {
public:
    explicit OneFile(std::string text) : content(std::move(text)) {}
    FileResult Read(const std::string&, std::string& bytes) const override {
        bytes = content;
        return {true, {}};
    }
    FileResult Replace(const std::string&, const std::string&) override { return {false, "read only"}; }

    FileResult Create(const std::string&, const std::string&) override { return {false, "read only"}; }

    std::string content;
};

const OneFile& File() {
    static const OneFile file = [] {
        std::mt19937_64 random(1);
        std::normal_distribution<double> normal(20, 3);
        Dataset dataset;
        dataset.cells.SetRowCount(rowCount);
        dataset.options.N = std::to_string(rowCount);
        char text[32];
        for (std::int32_t row = 1; row <= rowCount; ++row)
            for (const int column : {ColumnX, ColumnY}) {
                std::snprintf(text, sizeof text, "%.4f", normal(random));
                dataset.cells.Set(column, row, std::string(text));
            }
        return OneFile(DatasetFileText(dataset));
    }();
    return file;
}

void SetBytes(benchmark::State& state, const OneFile& file = File()) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * file.content.size()));
}

/// The table that an export makes of the dataset.
std::string ExportedTable() {
    Dataset dataset;
    SessionState session;
    LoadFile("d.KOV", dataset, session, File());
    return CsvText(dataset.cells);
}

/// X and Y alone, separated by semicolons, with decimal commas and every field in quotes or none.
std::string PlainTable(bool quotes) {
    Dataset dataset;
    SessionState session;
    LoadFile("d.KOV", dataset, session, File());
    const std::string quote = quotes ? "\"" : "";
    std::string text = "X;Y\r\n";
    for (std::int32_t row = 1; row <= rowCount; ++row)
        for (const int column : {ColumnX, ColumnY})
            text +=
                quote + CellText(dataset.cells.At(column, row)) + quote + (column == ColumnX ? ";" : "\r\n");
    std::ranges::replace(text, '.', ',');
    return text;
}

void CountLines(benchmark::State& state) {
    const std::string& text = File().content;
    for (auto _ : state) {
        std::size_t lines = 0;
        for (const char *at = text.data(), *end = at + text.size();
             (at = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)))); ++at)
            ++lines;
        benchmark::DoNotOptimize(lines);
    }
    SetBytes(state);
}
BENCHMARK(CountLines)->Unit(benchmark::kMillisecond);

void ReadDataset(benchmark::State& state) {
    for (auto _ : state) {
        Dataset dataset;
        SessionState session;
        if (!LoadFile("d.KOV", dataset, session, File()).Complete())
            state.SkipWithError("not read");
        benchmark::DoNotOptimize(dataset.cells.LastFilledRow());
    }
    SetBytes(state);
}
BENCHMARK(ReadDataset)->Unit(benchmark::kMillisecond);

void ImportTable(benchmark::State& state, std::string text) {
    const OneFile file(std::move(text));
    for (auto _ : state) {
        Dataset dataset;
        SessionState session;
        const CsvOutcome outcome = ImportCsv("d.csv", {}, dataset, session, file);
        if (!outcome.done || !outcome.warnings.empty() || dataset.cells.RowCount() != rowCount)
            state.SkipWithError("not read");
    }
    SetBytes(state, file);
}
BENCHMARK_CAPTURE(ImportTable, exported, ExportedTable())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ImportTable, comma_decimals, PlainTable(false))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ImportTable, quoted_comma_decimals, PlainTable(true))->Unit(benchmark::kMillisecond);

void SelectNumbers(benchmark::State& state) {
    Dataset dataset;
    SessionState session;
    LoadFile("d.KOV", dataset, session, File());
    for (auto _ : state)
        benchmark::DoNotOptimize(SelectRows(dataset.cells).Count());
    SetBytes(state);
}
BENCHMARK(SelectNumbers)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace corvane
