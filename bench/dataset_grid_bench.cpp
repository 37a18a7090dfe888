// What a user of the grid waits for, by the number of rows: opening it, an edit, a jump, counting, pasting.
#include "charts/qt_environment.h"
#include "core/format/numbers.h"
#include "desktop/dataset_grid.h"
#include "desktop/dataset_grid_actions.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

namespace {

using namespace corvane;

void Fill(Document& document, std::int64_t rows) {
    document.Load([rows](Dataset& dataset, SessionState&) {
        std::mt19937 random(5);
        std::uniform_real_distribution<> uniform(0, 100);
        dataset.cells.SetRowCount(static_cast<std::int32_t>(rows));
        for (std::int32_t row = 1; row <= rows; ++row)
            for (const int column : {ColumnX, ColumnSDX, ColumnY, ColumnSDY})
                dataset.cells.Set(column, row, NumberText(std::round(uniform(random) * 1000) / 1000));
    });
}

/// A shown and painted grid.
struct Shown {
    explicit Shown(Document& document) : grid(document) {
        grid.resize(860, 600);
        grid.show();
        QCoreApplication::processEvents();
        Paint();
    }
    void Paint() {
        grid.viewport()->repaint();
        grid.horizontalHeader()->viewport()->repaint();
    }

    DatasetGrid grid;
};

void OpenToFirstPaint(benchmark::State& state) {
    PrepareQt();
    Document document;
    Fill(document, state.range(0));
    for (auto _ : state)
        Shown shown(document);
}

void EditAndRepaint(benchmark::State& state) {
    PrepareQt();
    Document document;
    Fill(document, state.range(0));
    Shown shown(document);
    while (!shown.grid.Cells().CountsComplete())
        QCoreApplication::processEvents();
    CellEdit edit(document);
    bool odd = false;
    for (auto _ : state) {
        edit.Begin({7, ColumnY}, odd ? U'1' : U'2');
        edit.Take(odd ? "1.5" : "2.5");
        odd = !odd;
        QCoreApplication::processEvents();
        shown.Paint();
    }
}

void JumpScroll(benchmark::State& state) {
    PrepareQt();
    Document document;
    Fill(document, state.range(0));
    Shown shown(document);
    QScrollBar& bar = *shown.grid.verticalScrollBar();
    std::mt19937 random(6);
    for (auto _ : state) {
        bar.setValue(static_cast<int>(random() % static_cast<unsigned>(bar.maximum() + 1)));
        QCoreApplication::processEvents();
        shown.Paint();
    }
}

/// The longest time without an event while rows are counted is one slice of this.
void CountAllRows(benchmark::State& state) {
    Document document;
    Fill(document, state.range(0));
    for (auto _ : state) {
        RowCounter counter;
        counter.Follow(document.Data().cells);
        counter.Count(static_cast<std::int32_t>(state.range(0)));
        benchmark::DoNotOptimize(counter.Counts());
    }
}

void CountSlice(benchmark::State& state) {
    Document document;
    Fill(document, state.range(0));
    RowCounter counter;
    for (auto _ : state) {
        if (counter.Complete()) {
            state.PauseTiming();
            counter = {};
            counter.Follow(document.Data().cells);
            state.ResumeTiming();
        }
        counter.Count(1 << 14);
    }
}

void PasteNumbersOfTwoColumns(benchmark::State& state) {
    Document document;
    Dataset dataset;
    dataset.options.SINGLE_COLUMN = 0;
    std::string text;
    for (std::int64_t row = 0; row < state.range(0); ++row)
        text += "12.125\t13.5\n";
    for (auto _ : state)
        benchmark::DoNotOptimize(PasteNumbers(dataset, text, {}));
}

/// What a paste costs the window once its numbers are read.
void TakePastedTable(benchmark::State& state) {
    PrepareQt();
    Document document;
    Shown shown(document);
    Dataset dataset;
    dataset.options.SINGLE_COLUMN = 0;
    std::string text;
    for (std::int64_t row = 0; row < state.range(0); ++row)
        text += "12.125\t13.5\n";
    const PastedNumbers pasted = PasteNumbers(dataset, text, {});
    for (auto _ : state) {
        TakePasted(document, pasted);
        QCoreApplication::processEvents();
        shown.Paint();
        state.PauseTiming();
        document.Undo();
        state.ResumeTiming();
    }
}

BENCHMARK(OpenToFirstPaint)->Range(1000, 1'000'000)->RangeMultiplier(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(EditAndRepaint)->Range(1000, 1'000'000)->RangeMultiplier(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(JumpScroll)->Range(1000, 1'000'000)->RangeMultiplier(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(CountAllRows)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(CountSlice)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(PasteNumbersOfTwoColumns)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(TakePastedTable)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace
