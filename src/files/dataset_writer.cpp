#include "files/dataset_writer.h"

#include "core/format/code_page.h"
#include "core/format/numbers.h"
#include "core/grid_operations.h"
#include "core/option_table.h"
#include "core/version.h"
#include "files/record_text.h"

namespace corvane {
namespace {

constexpr const char* lineEnd = "\r\n";

void AppendCell(std::string& text, const CellView& cell) {
    if (const auto* number = std::get_if<double>(&cell)) {
        text += NumberText(*number);
        return;
    }
    const auto* words = std::get_if<std::string_view>(&cell);
    AppendQuoted(text, words ? *words : "");
}

void AskForEmptyRows(Dataset& dataset, Dialogs& dialogs) {
    for (std::int32_t row = 1; row <= dataset.cells.RowCount(); ++row) {
        if (!IsEmpty(dataset.cells.At(ColumnX, row)) && !IsEmpty(dataset.cells.At(ColumnY, row)))
            continue;
        if (dialogs.AskYesNo("Empty rows were found in the dataset. Do you want to remove them?", "",
                             false) &&
            RemoveEmptyRows(dataset) == RowCountResult::TooFew)
            dialogs.ShowMessage(MessageStyle::Information, TooFewRowsMessage, "");
        return;
    }
}

} // namespace

std::string DatasetFileText(const Dataset& dataset) {
    std::string text = std::to_string(VersionMajor) + "," + std::to_string(VersionMinor) + "," +
                       std::to_string(VersionRevision) + lineEnd;
    for (const OptionRow& row : OptionTable())
        if (row.storage != Storage::NotInFile)
            text.append(row.key)
                .append("=")
                .append(OptionText(GetOption(dataset.options, row)))
                .append(lineEnd);
    text.append("DATA:").append(lineEnd);
    for (std::int32_t row = 1; row <= dataset.cells.RowCount(); ++row)
        for (int column = ColumnX; column <= LastColumn; ++column) {
            AppendCell(text, dataset.cells.At(column, row));
            text += column == LastColumn ? lineEnd : ",";
        }
    if (!dataset.notes.empty())
        text.append("NOTES:").append(lineEnd).append(dataset.notes).append(lineEnd);
    return text;
}

FileResult SaveFile(const std::string& path, Dataset& dataset, FileStore& files, Dialogs& dialogs) {
    AskForEmptyRows(dataset, dialogs);
    return files.Replace(path, EncodeText(DatasetFileText(dataset)));
}

} // namespace corvane
