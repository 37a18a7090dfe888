#pragma once

#include "core/grid_operations.h"
#include "core/option_changes.h"
#include "evaluation/calculate.h"
#include "files/dataset_reader.h"
#include "platform/native/native_file_store.h"
#include "support/fakes.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace corvane::testing {

using Gates = std::vector<OptionRow::Member>;
using Settings = std::vector<std::pair<OptionRow::Member, OptionValue>>;
using TextPairs = std::vector<std::pair<const char*, const char*>>;

/// A dataset in its session, with all that a run needs.
struct Workbench {
    Workbench& Open(const std::string& path, const FileStore& files = NativeFileStore()) {
        const LoadOutcome loaded = LoadFile(path, dataset, session, files);
        EXPECT_TRUE(loaded.Complete()) << loaded.Error();
        return *this;
    }
    Workbench& OpenExample(const std::string& name) {
        return Open(std::string(CORVANE_EXAMPLES) + "/" + name);
    }
    /// Opens rows as a dataset file has them.
    Workbench& OpenRows(const std::string& name, const std::vector<std::string>& rows) {
        MemoryFiles memory;
        std::string& text = memory.files["/data/" + name];
        text = "4,0,0\nN=" + std::to_string(rows.size()) + "\nDATA:\n";
        for (const std::string& row : rows)
            text += row + "\n";
        return Open("/data/" + name, memory);
    }
    Workbench& OpenPairs(const std::string& name, const TextPairs& pairs) {
        std::vector<std::string> rows;
        for (const auto& [x, y] : pairs)
            rows.push_back(std::string(x) + ",," + y + ",,,,");
        return OpenRows(name, rows);
    }
    /// Ticks these gates and no others.
    Workbench& Only(const Gates& gates) {
        for (const OptionRow& row : OptionTable())
            if (row.role == OptionRole::Gate)
                ChangeOption(dataset, session, row, std::int16_t{0});
        for (const auto& gate : gates)
            ChangeOption(dataset, session, OptionOf(gate), std::int16_t{1});
        return *this;
    }
    Workbench& Set(const Settings& settings) {
        for (const auto& [member, value] : settings)
            ChangeOption(dataset, session, OptionOf(member), value);
        return *this;
    }
    /// Runs and applies what the run wants changed.
    RunResult Evaluate(const std::string& residueFile = "") {
        RunResult result =
            Calculate({dataset, session, FixedClock().Now(), FixedRandom().Seed(), residueFile}, progress);
        ApplyChanges(result.changes, dataset, session);
        return result;
    }

    Dataset dataset;
    SessionState session;
    RecordingProgress progress;
};

inline RunResult RunOfExample(const std::string& example, const Gates& gates, const Settings& settings = {}) {
    return Workbench().OpenExample(example).Only(gates).Set(settings).Evaluate();
}

inline RunResult RunOfPairs(const std::string& name, const TextPairs& pairs, const Gates& gates,
                            const Settings& settings = {}) {
    return Workbench().OpenPairs(name, pairs).Only(gates).Set(settings).Evaluate();
}

inline bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}
inline bool Has(const RunResult& run, const std::string& part) {
    return Has(run.report.Text(), part);
}

} // namespace corvane::testing
