#include "files/dataset_reader.h"

#include "core/format/code_page.h"
#include "core/format/numbers.h"
#include "core/format/text_lists.h"
#include "core/grid_operations.h"
#include "core/option_changes.h"
#include "core/option_table.h"
#include "files/text_reader.h"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

namespace corvane {
namespace {

constexpr int oldestMajorVersion = 2;

/// Reading ended here.
struct Stop {
    LoadState state;
    std::size_t line;
    std::string reason;
};

std::optional<Stop> CheckVersion(TextReader& reader) {
    const auto line = reader.ReadLine();
    TextReader fields(line.value_or(""));
    std::optional<std::int32_t> major;
    for (int part = 0; part < 3; ++part) {
        const auto number = ReadNumber(fields.ReadField().value_or(""));
        const auto whole = number ? ToInteger32(*number) : std::nullopt;
        if (!whole)
            return Stop{LoadState::Refused, 1,
                        "this is no dataset file: it does not begin with a version such as 4,0,0"};
        if (part == 0)
            major = whole;
    }
    if (*major < oldestMajorVersion)
        return Stop{LoadState::OldVersion, 1, OldVersionMessage};
    return std::nullopt;
}

/// Reads option lines up to and with the "DATA" line.
std::optional<Stop> ReadOptions(TextReader& reader, Dataset& dataset, SessionState& session,
                                LoadOutcome& outcome, bool& dataSeen) {
    for (;;) {
        const std::size_t at = reader.LineNumber();
        const auto line = reader.ReadLine();
        if (!line)
            return std::nullopt;
        const CodeValue code = GetCodeValue(*line);
        if (EqualInAnyCase(code.key, "DATA")) {
            dataSeen = true;
            return std::nullopt;
        }
        const OptionRow* row = code.key.empty() ? nullptr : FindOption(code.key);
        if (!row || row->storage != Storage::InFile)
            continue;
        const auto value = ReadOptionValue(*row, code.value);
        if (!value)
            return Stop{LoadState::Partial, at,
                        std::string(row->key) + " is " + QuotedForMessage(code.value) + ", not " +
                            std::string(ValuesTaken(row->Form()))};
        switch (ChangeOption(dataset, session, *row, *value)) {
        case ChangeResult::TooFewRows:
            if (outcome.tooFewRowsLine == 0)
                outcome.tooFewRowsLine = at;
            break;
        case ChangeResult::TooManyRows:
            return Stop{LoadState::Partial, at,
                        "N is " + QuotedForMessage(code.value) + ", more rows than can be counted"};
        case ChangeResult::Done:
            break;
        }
    }
}

std::optional<Stop> ReadCells(TextReader& reader, Dataset& dataset, LoadOutcome& outcome) {
    const auto rows = ToInteger32(LeadingNumber(dataset.options.N)).value_or(0);
    for (std::int32_t row = 1; row <= rows; ++row)
        for (int column = ColumnX; column <= LastColumn; ++column) {
            const auto field = reader.ReadField();
            if (!field)
                return Stop{LoadState::Partial, reader.LineNumber(),
                            "the file ends in row " + std::to_string(row) + " of the " +
                                std::to_string(rows) + " that N announces"};
            dataset.cells.Set(column, row, *field);
        }
    outcome.rowsRead = rows;
    return std::nullopt;
}

/// Everything after the "NOTES" line. The writer's own line end at the very end is no part of the notes.
void ReadNotes(TextReader& reader, std::string& notes) {
    notes.clear();
    bool seen = false;
    while (const auto line = reader.ReadLine())
        if (seen)
            notes.append(*line).append("\r\n");
        else
            seen = EqualInAnyCase(GetCodeValue(*line).key, "NOTES");
    if (!notes.empty())
        notes.resize(notes.size() - 2);
}

std::optional<Stop> ReadBody(TextReader& reader, Dataset& dataset, SessionState& session,
                             LoadOutcome& outcome) {
    bool dataSeen = false;
    if (auto stop = ReadOptions(reader, dataset, session, outcome, dataSeen))
        return stop;
    if (dataSeen)
        if (auto stop = ReadCells(reader, dataset, outcome))
            return stop;
    ReadNotes(reader, dataset.notes);
    return std::nullopt;
}

/// Reads what the file holds, its bytes being given.
std::optional<Stop> ReadText(const std::string& path, std::string text, Dataset& dataset,
                             SessionState& session, LoadOutcome& outcome) {
    if (!IsValidUtf8(text))
        text = FromWindows1252(text);
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::string_view content = text;
    if (content.starts_with(byteOrderMark))
        content.remove_prefix(byteOrderMark.size());

    TextReader reader(content);
    if (auto stop = CheckVersion(reader))
        return stop;
    dataset.cells.Clear();
    session.CurrentDatasetName = path;
    return ReadBody(reader, dataset, session, outcome);
}

} // namespace

std::string LoadOutcome::Error() const {
    return file + (line > 0 ? ":" + std::to_string(line) : "") + ": " + reason;
}

CodeValue GetCodeValue(std::string_view line) {
    CodeValue result;
    const std::size_t last = line.find_last_of(":=");
    if (last == std::string_view::npos) {
        result.value = TrimBlanks(line);
    } else {
        const std::string_view before = line.substr(0, last);
        const std::size_t previous = before.find_last_of(":=");
        result.key = TrimBlanks(previous == std::string_view::npos ? before : before.substr(previous + 1));
        result.value = TrimBlanks(line.substr(last + 1));
    }
    const auto cut = [](char end) { return end == '"' || end == '#'; };
    if (!result.value.empty() && cut(result.value.front()))
        result.value.remove_prefix(1);
    if (!result.value.empty() && cut(result.value.back()))
        result.value.remove_suffix(1);
    return result;
}

LoadOutcome LoadFile(const std::string& path, Dataset& dataset, SessionState& session,
                     const FileStore& files) {
    LoadOutcome outcome;
    outcome.file = path;
    const auto stopAt = [&](Stop stop) {
        outcome.state = stop.state;
        outcome.line = stop.line;
        outcome.reason = std::move(stop.reason);
        return outcome;
    };

    std::string text;
    if (const FileResult read = files.Read(path, text); !read.done)
        return stopAt({LoadState::Refused, 0, read.reason});
    try {
        if (auto stop = ReadText(path, std::move(text), dataset, session, outcome))
            return stopAt(std::move(*stop));
    } catch (const std::bad_alloc&) {
        dataset.cells.Clear();
        return stopAt({LoadState::Partial, 0, NotEnoughMemory});
    }
    return outcome;
}

} // namespace corvane
