#include "comparison/comparison_data.h"

#include "core/data_matrix.h"
#include "core/format/code_page.h"
#include "core/format/numbers.h"
#include "core/format/paths.h"
#include "core/format/text_lists.h"
#include "files/dataset_reader.h"
#include "files/text_reader.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace corvane {
namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

std::string RowName(std::size_t row) {
    return "row " + std::to_string(row + 1);
}

std::string NotANumber(const std::string& path, const UnreadCell& cell) {
    return path + ":" + std::to_string(cell.line) + ": " + RowName(cell.row) + ": " + cell.column + " is " +
           QuotedForMessage(cell.text) + ", not a number";
}

const UnreadCell* FindUnread(const ComparedModel& model, std::size_t row, char column) {
    for (const UnreadCell& cell : model.unread)
        if (cell.row == row && cell.column == column)
            return &cell;
    return nullptr;
}

/// Reads the files of a comparison one after another into its data.
class ModelReader {
public:
    ModelReader(ComparisonData& comparisonData, const ComparisonSteps& comparisonSteps)
        : data(comparisonData), steps(comparisonSteps) {}

    void Read(const std::string& path, std::size_t position, const FileStore& files) {
        ComparedModel& model = data.models.emplace_back();
        model.path = path;
        std::string bytes;
        if (const FileResult read = files.Read(path, bytes); !read.done)
            throw RunFailure(path + ": " + read.reason);
        const std::string text = DecodeText(bytes);
        TextReader reader(text);
        ReadHeader(reader, model);
        model.tag = std::to_string(position + 1);
        ReadRows(reader, model, position == 0);
    }

private:
    [[noreturn]] static void Fail(const ComparedModel& model, std::size_t line, const std::string& what) {
        throw RunFailure(model.path + ":" + std::to_string(line) + ": " + what);
    }

    void ReadHeader(TextReader& reader, const ComparedModel& model) {
        for (;;) {
            const std::size_t at = reader.LineNumber();
            const auto line = reader.ReadLine();
            if (!line)
                throw RunFailure(model.path + ": the file has no line \"DATA:\"");
            const CodeValue code = GetCodeValue(*line);
            if (EqualInAnyCase(code.key, "N")) {
                const auto number = ReadNumber(code.value);
                if (!number)
                    Fail(model, at, "N is " + QuotedForMessage(code.value) + ", not a number");
                if (*number > static_cast<double>(data.N))
                    Grow(*number, model, at);
            }
            if (EqualInAnyCase(code.key, "DATA"))
                return;
        }
    }

    void Grow(double rows, const ComparedModel& model, std::size_t line) {
        const auto count = ToInteger32(rows);
        if (!count)
            Fail(model, line, "N is " + NumberText(rows) + ", more rows than can be counted");
        data.N = static_cast<std::size_t>(*count);
        data.observedText.clear();
        data.Y.clear();
        for (ComparedModel& earlier : data.models) {
            if (!earlier.X.empty())
                earlier.discardedBy = model.path;
            earlier.X.clear();
            earlier.unread.clear();
        }
    }

    void ReadRows(TextReader& reader, ComparedModel& model, bool listedFirst) {
        for (std::size_t row = 0; row < data.N; ++row) {
            if (row % stats::ElementsBetweenLooks == 0)
                steps.Look();
            const std::size_t line = reader.LineNumber();
            for (int column = ColumnX; column <= LastColumn; ++column) {
                const auto field = reader.ReadField();
                if (!field || (column == ColumnX && EqualInAnyCase(GetCodeValue(*field).key, "NOTES")))
                    FailAtEnd(model, line, row);
                if (column == ColumnX)
                    TakePrediction(model, row, line, *field);
                else if (column == ColumnY)
                    TakeObservation(model, row, line, *field, listedFirst);
            }
        }
    }

    [[noreturn]] void FailAtEnd(const ComparedModel& model, std::size_t line, std::size_t row) const {
        Fail(model, line,
             "the data end in " + RowName(row) +
                 (data.N > FewestDataRows
                      ? " of the " + std::to_string(data.N) + " that are compared"
                      : "; a comparison needs at least " + std::to_string(FewestDataRows) + " data rows"));
    }

    static double Number(ComparedModel& model, const UnreadCell& place, std::string_view text) {
        const auto number = ReadNumber(text);
        if (!number) {
            model.unread.push_back(place);
            model.unread.back().text = text;
        }
        return number.value_or(noNumber);
    }

    static void TakePrediction(ComparedModel& model, std::size_t row, std::size_t line,
                               std::string_view text) {
        model.X.push_back(Number(model, {row, 'X', line, {}}, text));
    }

    void TakeObservation(ComparedModel& model, std::size_t row, std::size_t line, std::string_view text,
                         bool listedFirst) {
        if (row == data.Y.size()) {
            data.Y.push_back(noNumber);
            data.observedText.emplace_back();
        }
        std::string& slot = data.observedText[row];
        if (slot.empty() || listedFirst) {
            slot = text;
            if (!slot.empty())
                data.Y[row] = Number(model, {row, 'Y', line, {}}, text);
        } else if (slot != text) {
            throw ObservationsDiffer(model.path + ":" + std::to_string(line) + ": " + RowName(row) +
                                         ": Y is " + QuotedForMessage(text) + ", and " +
                                         QuotedForMessage(slot) + " in a file before it",
                                     row + 1, data.models.size());
        }
    }

    ComparisonData& data;
    const ComparisonSteps& steps;
};

} // namespace

double ComparisonData::Observed(std::size_t row) const {
    if (IsObserved(row) && !std::isnan(Y[row]))
        return Y[row];
    for (const ComparedModel& model : models)
        if (const UnreadCell* cell = FindUnread(model, row, 'Y'))
            throw RunFailure(NotANumber(model.path, *cell));
    throw RunFailure(models.front().path + ": " + RowName(row) + " has no observed value");
}

double ComparisonData::Predicted(std::size_t model, std::size_t row) const {
    const ComparedModel& asked = models[model];
    if (row < asked.X.size() && !std::isnan(asked.X[row]))
        return asked.X[row];
    if (const UnreadCell* cell = FindUnread(asked, row, 'X'))
        throw RunFailure(NotANumber(asked.path, *cell));
    throw RunFailure(asked.path + ": " + RowName(row) +
                     " has no prediction: its rows were given up for the larger N of " + asked.discardedBy);
}

ComparisonData LoadModels(const std::vector<ListedFile>& list, const FileStore& files,
                          ComparisonSteps& steps) {
    ComparisonData data;
    ModelReader reader(data, steps);
    for (std::size_t position = 0; position < list.size(); ++position) {
        if (!list[position].selected)
            continue;
        steps.BeginStage("Reading " + FileNameOf(list[position].path) + "...");
        reader.Read(list[position].path, position, files);
        steps.Done();
    }
    return data;
}

} // namespace corvane
