#include "comparison/koc_file.h"

#include "core/format/code_page.h"
#include "core/format/failure.h"
#include "core/format/paths.h"
#include "core/format/text_lists.h"
#include "files/record_text.h"
#include "files/text_reader.h"

#include <string_view>

namespace corvane {
namespace {

constexpr std::string_view optionsBegin = "<Options>", optionsEnd = "</Options>", lineEnd = "\r\n";

/// In the file's order, which is not that of the window.
constexpr std::string ComparisonSettings::*fileOrder[] = {
    &ComparisonSettings::DigitsLong, &ComparisonSettings::DigitsShort,
    &ComparisonSettings::DecimalsStatistics, &ComparisonSettings::DecimalsProbability,
    &ComparisonSettings::DecimalsCorrelations};

/// The items of a file one after another.
class Items {
public:
    explicit Items(std::string_view text) : reader(text) {}

    bool AtEnd() const { return reader.AtEnd(); }
    std::size_t Line() const { return line; }

    std::string Next(const char* what) {
        line = reader.LineNumber();
        const auto item = reader.ReadField();
        if (!item)
            throw RunFailure(std::string("the file ends where ") + what + " should follow");
        return std::string(*item);
    }

private:
    TextReader reader;
    std::size_t line = 1;
};

void ReadItems(Items& items, ComparisonSettings& settings, std::vector<ListedFile>& rows,
               KocOutcome& outcome) {
    std::string item = items.Next("a comparison");
    if (item == optionsBegin) {
        for (const auto setting : fileOrder) {
            item = items.Next("a setting");
            if (item == optionsEnd)
                break;
            settings.*setting = item;
        }
        if (item != optionsEnd)
            item = items.Next("</Options>");
    }
    // In hand is a tick, or the end of the options with a tick after it.
    const auto here = [&] { return outcome.file + ":" + std::to_string(items.Line()) + ": "; };
    while (!items.AtEnd()) {
        if (item == optionsEnd)
            item = items.Next("a tick");
        const std::string path = items.Next("a path");
        if (FileExists(path)) {
            const auto selected = ReadTruth(item);
            if (!selected)
                throw RunFailure("a tick is " + QuotedForMessage(item) + ", not #TRUE# or #FALSE#");
            rows.push_back({path, *selected});
        } else {
            outcome.leftOut.push_back(here() + path + ": there is no such file");
        }
        if (items.AtEnd())
            return;
        item = items.Next("a tick");
    }
    if (item != optionsEnd)
        outcome.leftOut.push_back(here() + "the file ends after " + QuotedForMessage(item) +
                                  ", where a path should follow");
}

} // namespace

std::string KocOutcome::Error() const {
    return file + (line > 0 ? ":" + std::to_string(line) : "") + ": " + reason;
}

std::string KocFileText(const ComparisonSettings& settings, const std::vector<ListedFile>& rows) {
    std::string text;
    const auto addLine = [&](std::string_view item) {
        AppendQuoted(text, item);
        text += lineEnd;
    };
    addLine(optionsBegin);
    for (const auto setting : fileOrder)
        addLine(settings.*setting);
    addLine(optionsEnd);
    for (const ListedFile& row : rows) {
        AppendTruth(text, row.selected);
        text += ',';
        addLine(row.path);
    }
    return text;
}

KocOutcome ReadKocFile(const std::string& path, const FileStore& files, ComparisonSettings& settings,
                       std::vector<ListedFile>& rows) {
    KocOutcome outcome;
    outcome.file = path;
    std::string bytes;
    if (const FileResult read = files.Read(path, bytes); !read.done) {
        outcome.reason = read.reason;
        return outcome;
    }
    const std::string text = DecodeText(bytes);
    Items items(text);
    rows.clear();
    try {
        ReadItems(items, settings, rows, outcome);
    } catch (const RunFailure& failure) {
        outcome.line = items.Line();
        outcome.reason = failure.what();
    }
    return outcome;
}

} // namespace corvane
