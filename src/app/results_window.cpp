#include "app/results_window.h"

#include "app/numbered_file.h"
#include "core/format/paths.h"
#include "core/format/text_lists.h"
#include "report/text_renderer.h"

namespace corvane {

std::string WorkingFolder(Folders& folders) {
    std::string folder = folders.Documents() + "/ORRL/KOV Files";
    folders.Make(folder);
    return folder;
}

std::string CaptionWithFile(std::string_view caption, std::string_view path) {
    constexpr std::size_t longest = 20;
    const std::string name = FileNameOf(path);
    const char* dots = CharacterCount(name) > longest ? "..." : "";
    return std::string(caption) + " (" + dots + std::string(LastCharacters(name, longest)) + ")";
}

FileResult SaveUnderNumber(ResultsWindow& window, std::string_view folder, ResultsServices services,
                           std::string& path) {
    const std::string working = folder.empty() ? WorkingFolder(services.folders) : std::string(folder);
    FileResult saved = CreateNumbered(working, "Notes", 1, window.Text(), services.files, path);
    if (saved.done)
        window.caption = CaptionWithFile(window.caption, path);
    return saved;
}

void PrintResults(const ResultsWindow& window, ResultsServices services) {
    const FileResult printed = services.printer.Print(WithLineFeeds(window.Text()), window.caption);
    if (!printed.done)
        services.dialogs.ShowMessage(MessageStyle::Critical, TrappedMessage("Print", printed.reason, 1),
                                     "Info");
}

void EditResults(const ResultsWindow& window, ResultsServices services) {
    std::string path;
    if (CreateNumbered(WorkingFolder(services.folders), "Results", 1, window.Text(), services.files, path)
            .done)
        services.editor.Open(path);
}

std::string TrappedMessage(std::string_view source, std::string_view description, int code) {
    return "Source: " + std::string(source) + "\r\nDescription: " + std::string(description) +
           "\r\nCode: " + std::to_string(code);
}

} // namespace corvane
