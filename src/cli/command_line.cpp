#include "cli/command_line.h"

#include "cli/calc_command.h"
#include "core/version.h"

#include <CLI/CLI.hpp>
#include <iostream>

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
    calc->add_option("--out", request.outFolder, "Save the results as results.txt in this folder")
        ->type_name("DIR")
        ->check(CheckNotEmpty);
}

} // namespace

ExitCode RunCommandLine(int argumentCount, const char* const* arguments) {
    CLI::App program("Corvane judges how well a model predicts reality.", "corvane");
    program.set_version_flag("--version", "corvane " + VersionText());
    program.footer("Example: corvane calc examples/mtcars.KOV --set OLS_SLS=1\n"
                   "Exit codes: 0 done, 1 the data or an option does not serve, 2 wrong usage.");
    std::string file;
    program.add_option("FILE", file, "A dataset to open in the window");
    CalcRequest calc;
    AddCalc(program, calc);

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
