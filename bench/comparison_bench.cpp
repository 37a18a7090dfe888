// A comparison of models beside the reading of their files from memory.

#include "comparison/comparison_data.h"
#include "comparison/comparison_report.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <random>

namespace corvane {
namespace {

/// What a comparison needs around it, in silence.
struct Surroundings : FileStore, Dialogs, Feedback, Clock {
    FileResult Read(const std::string& path, std::string& bytes) const override {
        bytes = files.at(path);
        return {true, {}};
    }
    FileResult Replace(const std::string&, const std::string&) override { return {false, "read only"}; }
    FileResult Create(const std::string&, const std::string&) override { return {false, "read only"}; }
    void ShowMessage(MessageStyle, const std::string&, const std::string&) override {}
    bool AskYesNo(const std::string&, const std::string&, bool byDefault) override { return byDefault; }
    void ShowProgress(const std::string&) override {}
    void HideProgress() override {}
    void Beep() override {}
    ClockTime Now() const override { return {}; }

    /// Models with errors of one size, so that none is beyond comparison with another.
    Surroundings(std::int64_t models, std::int64_t rows) {
        std::mt19937_64 random(1);
        std::normal_distribution<double> normal;
        std::vector<double> observed(static_cast<std::size_t>(rows));
        for (double& value : observed)
            value = 20 + 6 * normal(random);
        for (std::int64_t model = 1; model <= models; ++model) {
            const std::string path = std::to_string(model) + ".KOV";
            std::string& text = files[path];
            text = "4,0,0\r\nN=" + std::to_string(rows) + "\r\nDATA:\r\n";
            char row[80];
            for (const double value : observed) {
                std::snprintf(row, sizeof row, "\"%.4f\",\"\",\"%.4f\",\"\",\"\",\"\",\"\"\r\n",
                              value + 2 * normal(random), value);
                text += row;
            }
            list.Add({&path, 1});
            list.Select(list.Rows().size() - 1, true);
        }
    }

    std::map<std::string, std::string> files;
    ComparisonList list;
};

void ReadModels(benchmark::State& state) {
    Surroundings around(state.range(0), state.range(1));
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadModels(around.list.Rows(), around, around));
}

void CompareAll(benchmark::State& state) {
    Surroundings around(state.range(0), state.range(1));
    for (auto _ : state) {
        const ComparisonResult result = CompareModels(around.list, false, {around, around, around, around});
        if (!result.finished)
            state.SkipWithError(result.fault.c_str());
        benchmark::DoNotOptimize(result.report.Text());
    }
}

BENCHMARK(ReadModels)
    ->Args({10, 10'000})
    ->Args({100, 10'000})
    ->Args({100, 1'000})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(CompareAll)
    ->Args({10, 10'000})
    ->Args({100, 10'000})
    ->Args({100, 1'000})
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace corvane
