#include "cli/command_support.h"

#include "app/option_assignments.h"
#include "core/format/text_lists.h"
#include "core/grid_operations.h"
#include "files/dataset_reader.h"

#include <filesystem>
#include <iostream>

namespace corvane {

ExitCode Fail(const std::string& what) {
    std::cerr << "corvane: " << what << '\n';
    return ExitFailed;
}

std::string OpenDataset(const std::string& data, Dataset& dataset, SessionState& session, FileStore& files) {
    // The header takes the name behind the last separator, so the path must have one.
    std::error_code error;
    const std::string path = std::filesystem::absolute(data, error).string();
    if (error)
        return QuotedForMessage(data) + ": " + error.message();
    LoadOutcome loaded = LoadFile(path, dataset, session, files);
    if (!loaded.Complete()) {
        loaded.file = data;
        return loaded.Error();
    }
    if (loaded.tooFewRowsLine > 0)
        return data + ":" + std::to_string(loaded.tooFewRowsLine) + ": " + TooFewRowsMessage;
    return {};
}

std::string ApplyAssignments(const std::vector<std::string>& assignments, Dataset& dataset,
                             SessionState& session) {
    for (const std::string& assignment : assignments)
        if (const auto wrong = AssignOption(dataset, session, assignment))
            return "--set " + assignment.substr(0, assignment.find('=')) + ": " + *wrong;
    return {};
}

} // namespace corvane
