#include "cli/command_line.h"

#include "cli/calc_command.h"
#include "cli/switch_run.h"
#include "core/format/code_page.h"
#include "core/format/text_lists.h"
#include "core/version.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <string>
#include <vector>

namespace corvane {
namespace {

/// "KEY=VALUE" with a key.
std::string CheckAssignment(const std::string& text) {
    const std::size_t equals = text.find('=');
    return equals == std::string::npos || equals == 0 ? "--set needs KEY=VALUE, not '" + text + "'" : "";
}

std::string CheckNotEmpty(const std::string& text) {
    return text.empty() ? "the name is empty" : "";
}

void AddCalc(CLI::App& program, CalcRequest& request) {
    CLI::App* calc = program.add_subcommand("calc", "Evaluate a dataset and print the report");
    calc->add_option("DATA", request.data, "The dataset file (.KOV)")->required();
    calc->add_option(
            "--set", request.assignments,
            "Set an option of the dataset, by its key in the file; also SwapXY, InvertXRanks, InvertYRanks")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false)
        ->check(CheckAssignment);
    calc->add_flag("--all", request.all, "Tick every report section and plot (before --set)");
    calc->add_option("--seed", request.seed, "Seed of the bootstrap; the same seed gives the same report")
        ->type_name("N");
    calc->add_option("--out", request.outFolder,
                     "Save every window that the run opens as a file in this folder")
        ->type_name("DIR")
        ->check(CheckNotEmpty);
    calc->add_option("--json", request.jsonFile,
                     "Write the report as JSON into this file; \"-\": to standard output instead of the text")
        ->type_name("FILE")
        ->check(CheckNotEmpty);
}

} // namespace

ExitCode RunCommandLine(int argumentCount, const char* const* arguments) {
    CLI::App program("Corvane judges how well a model predicts reality.", "corvane");
    program.set_version_flag("--version", "corvane " + VersionText());
    program.footer(
        "Switches, for a run without a window: /F<file> opens a dataset, /G shows plots, /R performs the "
        "residual\n"
        "analysis, /P prints the results, /S saves them, /O shows them, /L<folder> is where they are saved,\n"
        "/X quits.  Example: corvane /Fd.KOV /S /Lout /X\n\n"
        "Example: corvane calc examples/mtcars.KOV --set OLS_SLS=1\n"
        "Exit codes: 0 done, 1 the data or an option does not serve, 2 wrong usage.");
    std::string file;
    program.add_option("FILE", file, "A dataset to open in the window");
    CalcRequest calc;
    AddCalc(program, calc);

    const std::vector<std::string> words(arguments + 1, arguments + argumentCount);
    const bool subcommand = !words.empty() && (words[0] == "calc" || words[0].starts_with('-'));
    if (!subcommand && IsSwitchLine(words))
        return RunSwitchLine(words);
    for (const std::string& word : words)
        if (!IsValidUtf8(word)) {
            std::cerr << "corvane: an argument is no valid UTF-8: " << QuotedForMessage(FromWindows1252(word))
                      << '\n';
            return ExitFailed;
        }

    try {
        program.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? ExitDone : ExitUsage;
    }
    if (program.got_subcommand("calc"))
        return RunCalc(calc);
    std::cerr << "corvane: this build has no window; to evaluate a file: corvane calc "
              << (file.empty() ? "FILE.KOV" : file) << '\n';
    return ExitFailed;
}

} // namespace corvane
