#pragma once

#include "cli/exit_codes.h"
#include "core/dataset.h"
#include "core/session_state.h"
#include "platform/file_store.h"

#include <string>
#include <vector>

namespace corvane {

/// Writes "corvane: " and the text on standard error.
ExitCode Fail(const std::string& what);

/// Writes "corvane: warning: " and the text on standard error.
void Warn(const std::string& what);

/// Loads a dataset file, or a table (.csv), of which standard error tells what was taken from where; the
/// lines also go to `messages`. Returns why it cannot serve, or "".
std::string OpenDataset(const std::string& data, Dataset& dataset, SessionState& session, FileStore& files,
                        std::vector<std::string>* messages = nullptr);

/// Applies "KEY=VALUE" texts from left to right. Returns the first fault, or "".
std::string ApplyAssignments(const std::vector<std::string>& assignments, Dataset& dataset,
                             SessionState& session);

} // namespace corvane
