#include "app/open_file.h"

#include "core/format/text_lists.h"
#include "files/csv_import.h"
#include "files/dataset_reader.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace corvane {
namespace {

OpenEnd EndOf(LoadState state) {
    switch (state) {
    case LoadState::Loaded:
        return OpenEnd::Opened;
    case LoadState::Partial:
        return OpenEnd::Partial;
    case LoadState::OldVersion:
        return OpenEnd::OldVersion;
    case LoadState::Refused:
        break;
    }
    return OpenEnd::Refused;
}

} // namespace

std::string OpenOutcome::Error() const {
    return file + (line > 0 ? ":" + std::to_string(line) : "") + ": " + reason;
}

FileKind KindOfFile(std::string_view path) {
    constexpr std::string_view comparison = ".KOC";
    if (path.size() >= comparison.size() &&
        EqualInAnyCase(path.substr(path.size() - comparison.size()), comparison))
        return FileKind::Comparison;
    const std::string ending = std::filesystem::path(path).extension().string();
    return EqualInAnyCase(ending, ".csv") ? FileKind::Table : FileKind::Dataset;
}

std::string AbsolutePath(const std::string& path, std::string& reason) {
    std::error_code error;
    std::string absolute = std::filesystem::absolute(path, error).string();
    if (!error)
        return absolute;
    reason = error.message();
    return {};
}

OpenOutcome OpenDataset(const std::string& path, Dataset& dataset, SessionState& session,
                        const FileStore& files) {
    std::string reason;
    const std::string absolute = AbsolutePath(path, reason);
    if (absolute.empty())
        return {.end = OpenEnd::Refused, .file = QuotedForMessage(path), .reason = reason};
    if (KindOfFile(path) == FileKind::Table)
        return OpenTable(path, {}, dataset, session, files);
    LoadOutcome loaded = LoadFile(absolute, dataset, session, files);
    return {.end = EndOf(loaded.state),
            .file = path,
            .line = loaded.line,
            .reason = std::move(loaded.reason),
            .fewRowsLine = loaded.tooFewRowsLine,
            .rowsRead = loaded.rowsRead};
}

OpenOutcome OpenTable(const std::string& path, const CsvOptions& options, Dataset& dataset,
                      SessionState& session, const FileStore& files) {
    std::string reason;
    const std::string absolute = AbsolutePath(path, reason);
    CsvOutcome table = ImportCsv(absolute.empty() ? path : absolute, options, dataset, session, files);
    table.file = path;
    if (!table.done)
        return {.end = OpenEnd::Refused,
                .file = path,
                .line = table.fault.line,
                .reason = std::move(table.fault.text)};
    OpenOutcome outcome{
        .file = path, .rowsRead = dataset.cells.RowCount(), .summary = table.Located({0, table.summary})};
    for (const CsvRemark& warning : table.warnings)
        outcome.warnings.push_back(table.Located(warning));
    return outcome;
}

OpenOutcome OpenComparison(const std::string& path, ComparisonList& list, const FileStore& files) {
    KocOutcome opened = list.Open(path, files);
    const OpenEnd end = opened.Complete() ? OpenEnd::Opened
                        : opened.line > 0 ? OpenEnd::Partial
                                          : OpenEnd::Refused;
    return {.end = end,
            .file = path,
            .line = opened.line,
            .reason = std::move(opened.reason),
            .warnings = std::move(opened.leftOut)};
}

} // namespace corvane
