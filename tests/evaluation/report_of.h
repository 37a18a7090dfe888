#pragma once

#include "core/grid_operations.h"
#include "core/option_changes.h"
#include "evaluation/calculate.h"
#include "files/dataset_reader.h"
#include "platform/native/native_file_store.h"
#include "support/run_fakes.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace corvane::testing {

using Gates = std::vector<OptionRow::Member>;
using Settings = std::vector<std::pair<OptionRow::Member, OptionValue>>;

/// The run of a dataset file with only the given sections ticked, and then the given settings.
inline RunResult RunOf(Dataset& dataset, const std::string& path, const Gates& gates,
                       const Settings& settings = {}, const FileStore& files = NativeFileStore()) {
    SessionState session;
    const LoadOutcome loaded = LoadFile(path, dataset, session, files);
    EXPECT_TRUE(loaded.Complete()) << loaded.Error();
    for (const OptionRow& row : OptionTable())
        if (row.role == OptionRole::Gate)
            ChangeOption(dataset, session, row, std::int16_t{0});
    for (const auto& gate : gates)
        ChangeOption(dataset, session, OptionOf(gate), std::int16_t{1});
    for (const auto& [member, value] : settings)
        ChangeOption(dataset, session, OptionOf(member), value);
    RunFakes fakes;
    return Calculate(dataset, session, fakes.Services());
}

inline RunResult RunOf(const std::string& path, const Gates& gates, const Settings& settings = {},
                       const FileStore& files = NativeFileStore()) {
    Dataset dataset;
    return RunOf(dataset, path, gates, settings, files);
}

inline RunResult RunOfExample(const std::string& example, const Gates& gates, const Settings& settings = {}) {
    return RunOf(std::string(CORVANE_EXAMPLES) + "/" + example, gates, settings);
}

/// The same with pairs of X and Y in memory, under the name of a dataset file.
using TextPairs = std::vector<std::pair<const char*, const char*>>;
inline RunResult RunOfPairs(const std::string& name, const TextPairs& pairs, const Gates& gates,
                            const Settings& settings = {}) {
    MemoryFiles files;
    std::string& text = files.files["/data/" + name];
    text = "4,0,0\nN=" + std::to_string(pairs.size()) + "\nDATA:\n";
    for (const auto& [x, y] : pairs)
        text += std::string(x) + ",," + y + ",,,,\n";
    return RunOf("/data/" + name, gates, settings, files);
}

inline bool Has(const RunResult& run, const std::string& part) {
    return run.report.Text().find(part) != std::string::npos;
}

/// The XY plots that a run asked for, in their order.
inline std::vector<PlotRequest> XYPlots(const RunResult& run) {
    std::vector<PlotRequest> plots;
    for (const ChartRequest& request : run.plots)
        if (const auto* plot = std::get_if<PlotRequest>(&request))
            plots.push_back(*plot);
    return plots;
}

} // namespace corvane::testing
