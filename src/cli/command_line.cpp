#include "cli/command_line.h"

#include "cli/built_painter.h"
#include "cli/calc_command.h"
#include "cli/command_support.h"
#include "cli/compare_command.h"
#include "cli/generate_command.h"
#include "cli/plot_command.h"
#include "cli/switch_run.h"
#include "cli/table_commands.h"
#include "core/format/code_page.h"
#include "core/format/numbers.h"
#include "core/format/text_lists.h"
#include "core/version.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <limits>
#include <sstream>
#include <string>
#include <utility>
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

/// One run of "#" and "0" with at most one point in it, between any other characters.
std::string CheckPicture(const std::string& picture) {
    constexpr std::size_t longest = 40;
    if (CharacterCount(picture) > longest)
        return QuotedForMessage(picture) + " is longer than the " + std::to_string(longest) +
               " characters that a picture may have";
    const std::size_t first = picture.find_first_of("#0."), last = picture.find_last_of("#0.");
    const std::string run = first == std::string::npos ? "" : picture.substr(first, last - first + 1);
    const bool fits = run.find_first_not_of("#0.") == std::string::npos &&
                      std::ranges::count(run, '.') <= 1 && run.find_first_of("#0") != std::string::npos;
    return fits ? "" : QuotedForMessage(picture) + " is no picture of #, 0 and one point, as 0.00";
}

/// A whole number that a `Number` can hold, in decimal digits: "010" is ten, and "0x10" none.
template<class Number>
CLI::Validator WholeNumber() {
    return {[](std::string& text) -> std::string {
                Number number{};
                const char* const end = text.data() + text.size();
                if (const auto read = std::from_chars(text.data(), end, number);
                    read.ec != std::errc() || read.ptr != end)
                    return "'" + text + "' is no whole number from " +
                           std::to_string(std::numeric_limits<Number>::min()) + " to " +
                           std::to_string(std::numeric_limits<Number>::max());
                text = std::to_string(number);
                return {};
            },
            ""};
}

void AddOutputs(CLI::App& command, std::string& outFolder, std::string& jsonFile) {
    command.add_option("--out", outFolder, "Save every window that the run opens as a file in this folder")
        ->type_name("DIR")
        ->check(CheckNotEmpty);
    command
        .add_option("--json", jsonFile,
                    "Write the report as JSON into this file; \"-\": to standard output instead of the text")
        ->type_name("FILE")
        ->check(CheckNotEmpty);
}

void AddCalc(CLI::App& program, CalcRequest& request) {
    CLI::App* calc = program.add_subcommand("calc", "Evaluate a dataset and print the report");
    calc->add_option("DATA", request.data, "The dataset file (.KOV) or a table (.csv)")->required();
    calc->add_option(
            "--set", request.assignments,
            "Set an option of the dataset, by its key in the file; also SwapXY, InvertXRanks, InvertYRanks")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false)
        ->check(CheckAssignment);
    calc->add_flag("--all", request.all, "Tick every report section and plot (before --set)");
    calc->add_option("--seed", request.seed, "Seed of the bootstrap; the same seed gives the same report")
        ->type_name("N")
        ->transform(WholeNumber<std::uint64_t>());
    AddOutputs(*calc, request.outFolder, request.jsonFile);
}

void AddCompare(CLI::App& program, CompareRequest& request) {
    CLI::App* compare =
        program.add_subcommand("compare", "Compare models that predict the same observations");
    compare
        ->add_option("FILES", request.files, "A comparison file (.KOC), or dataset files (.KOV), one a model")
        ->required()
        ->check(CheckNotEmpty);
    compare
        ->add_option("--select", request.select,
                     "Compare only these files, by their positions in the list; otherwise those that the "
                     "comparison file has ticked, or all")
        ->type_name("P,P...")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check([](const std::string& text) {
            return LeadingNumber(text) >= 1 ? std::string() : "a position is 1 or more, not '" + text + "'";
        })
        ->transform(WholeNumber<std::size_t>());
    compare
        ->add_option("--long", request.settings.longDigits,
                     "Width of the wide columns, 10 to 20; at first 12")
        ->type_name("N")
        ->transform(WholeNumber<int>());
    compare
        ->add_option("--short", request.settings.shortDigits,
                     "Width of the narrow columns, 6 or more; at first 9")
        ->type_name("N")
        ->transform(WholeNumber<int>());
    compare
        ->add_option_function<std::string>(
            "--decimals",
            [&request](const std::string& text) { request.settings.decimals = ReadDecimals(text); },
            "Decimals of statistics, probabilities and correlations; at first 4,3,2")
        ->type_name("S,P,C")
        ->check([](const std::string& text) {
            return ReadDecimals(text) ? std::string()
                                      : "it needs three whole numbers, S,P,C, not '" + text + "'";
        });
    compare->add_flag("--references", request.references, "End the report with its literature");
    AddOutputs(*compare, request.outFolder, request.jsonFile);
}

void AddPlot(CLI::App& program, PlotCommandRequest& request) {
    CLI::App* plot = program.add_subcommand("plot", "Paint a plot of a dataset into a picture file");
    plot->add_option("DATA", request.data, "The dataset file (.KOV) or a table (.csv)")->required();
    plot->add_option("KIND", request.kind, "scatter, ranks or histogram")
        ->required()
        ->check(CLI::IsMember({"scatter", "ranks", "histogram"}));
    plot->add_option("--set", request.assignments, "Set an option of the dataset, by its key in the file")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false)
        ->check(CheckAssignment);
    plot->add_option("-o,--output", request.outputFile, "The picture: .svg, .png, .pdf or .bmp")
        ->type_name("FILE")
        ->required()
        ->check([](const std::string& path) {
            return !BuiltPainter() || ChartFormatOf(path)
                       ? std::string()
                       : "'" + path + "' does not end in .svg, .png, .pdf or .bmp";
        });
    plot->add_flag("--force", request.force, "Replace the picture if it exists");
    plot->add_option("--log", request.logAxes, "Logarithmic axes: x, y or xy")
        ->check(CLI::IsMember({"x", "y", "xy"}));
    plot->add_option("--stats", request.statistics, "Statistic lines of each series: trend,max,min,sd,mean")
        ->delimiter(',')
        ->check(CLI::IsMember({"trend", "max", "min", "sd", "mean"}));
    plot->add_option("--stat-width", request.statisticLines.width, "Width of the statistic lines, in pixels")
        ->type_name("N")
        ->check(CLI::Range(0.1, 20.0));
    plot->add_option_function<std::vector<int>>(
            "--stat-colour",
            [&request](const std::vector<int>& parts) {
                const auto part = [&](std::size_t i) { return static_cast<std::uint8_t>(parts[i]); };
                request.statisticLines.colour = {part(0), part(1), part(2)};
            },
            "Colour of the statistic lines: red, green and blue, 0 to 255 each")
        ->type_name("R,G,B")
        ->delimiter(',')
        ->expected(3)
        ->check(CLI::Range(0, 255));
    plot->add_option("--format", request.labelFormat, "Number format of the axis labels, as 0.00")
        ->type_name("PICTURE")
        ->check(CheckPicture);
    plot->add_flag("--grid", request.grid, "Draw grid lines");
    plot->add_flag("--no-legend", request.noLegend, "Leave the legend out");
    plot->add_option("--look", request.looks,
                     "Looks: no-frame, plot-shadow, area-shadow, plot-colour, area-colour")
        ->delimiter(',')
        ->check(CLI::IsMember(PlotLooks));
    plot->add_option_function<std::vector<int>>(
            "--size",
            [&request](const std::vector<int>& size) {
                request.size = {size[0], size[1]};
            },
            "Width and height of the picture in pixels of 1/96 inch; 800,600 without")
        ->type_name("W,H")
        ->delimiter(',')
        ->expected(2)
        ->check(CLI::Range(300, 4000));
}

/// -o with a name that ends so (in any case), and --force.
void AddOutput(CLI::App& command, std::string& file, bool& force, const std::string& ending) {
    command.add_option("-o,--output", file, "The file to write (" + ending + ")")
        ->type_name("FILE")
        ->required()
        ->check([ending](const std::string& path) {
            const bool fits = path.size() > ending.size() &&
                              EqualInAnyCase(path.substr(path.size() - ending.size()), ending);
            return fits ? std::string() : "'" + path + "' does not end in " + ending;
        });
    command.add_flag("--force", force, "Replace the file if it exists");
}

void AddGenerate(CLI::App& program, GenerateRequest& request) {
    CLI::App* generate = program.add_subcommand("generate", "Write a dataset of random pairs");
    generate->add_option("--method", request.method, "How X and Y are joined: frank, clayton or harlow")
        ->required()
        ->check(CLI::IsMember({"frank", "clayton", "harlow"}));
    PairRequest& pairs = request.pairs;
    generate->add_option("-n", pairs.N, "Number of pairs")
        ->type_name("N")
        ->required()
        ->transform(WholeNumber<std::int32_t>());
    const auto number = [&](const char* name, double& value, const char* help) {
        const auto read = [&value](const CLI::results_t& texts) {
            const auto given = ReadNumber(texts[0]);
            value = given.value_or(0);
            return given.has_value();
        };
        generate->add_option(name, read, help)->type_name("NUMBER")->required();
    };
    number("--mean-x", pairs.MeanX, "Mean of X, the predicted values");
    number("--mean-y", pairs.MeanY, "Mean of Y, the observed values");
    number("--var-x", pairs.VarX, "Variance of X");
    number("--var-y", pairs.VarY, "Variance of Y");
    number("-r", pairs.r, "Correlation of X and Y, from 0 to 1");
    generate->add_option("--seed", request.seed, "The same seed gives the same file")
        ->type_name("N")
        ->transform(WholeNumber<std::uint64_t>());
    AddOutput(*generate, request.outputFile, request.force, ".KOV");
}

void AddImport(CLI::App& program, ImportRequest& request) {
    CLI::App* import = program.add_subcommand("import", "Make a dataset file of a table (docs/csv.md)");
    CsvOptions& options = request.options;
    import->add_option("FILE", request.table, "The table: columns separated by comma, semicolon or tab")
        ->required();
    for (int column = ColumnX; column <= LastColumn; ++column)
        if (const std::string option(ColumnOption(column)); !option.empty())
            import
                ->add_option(option, options.columns[static_cast<std::size_t>(column)],
                             "Column of " + std::string(DatasetColumnName(column)) +
                                 ", by its name or number")
                ->type_name("COL")
                ->check(CheckNotEmpty);
    const auto takeDecimal = [&options](const std::string& mark) {
        options.decimal = mark == "comma" ? ',' : mark == "point" ? '.' : mark[0];
    };
    const auto takeSeparator = [&options](const std::string& mark) {
        for (const char each : {',', ';', '\t'})
            if (mark == SeparatorName(each) || mark == std::string(1, each))
                options.separator = each;
    };
    const auto takeHeader = [&options](const std::string& answer) { options.header = answer == "yes"; };
    import->add_option_function<std::string>("--decimal", takeDecimal, "Which mark is decimal; also , or .")
        ->type_name("comma|point")
        ->check(CLI::IsMember({",", ".", "comma", "point"}).description(""));
    import
        ->add_option_function<std::string>("--separator", takeSeparator,
                                           "What separates the columns; also , or ;")
        ->type_name("comma|semicolon|tab")
        ->check(CLI::IsMember({",", ";", "\t", "comma", "semicolon", "tab"}).description(""));
    import->add_option_function<std::string>("--header", takeHeader, "Whether the first line holds names")
        ->check(CLI::IsMember({"yes", "no"}));
    AddOutput(*import, request.outputFile, request.force, ".KOV");
}

void AddExport(CLI::App& program, ExportRequest& request) {
    CLI::App* command = program.add_subcommand(
        "export", "Write the cells of a dataset as a table, without its options and notes");
    command->add_option("DATA", request.data, "The dataset file (.KOV) or a table (.csv)")->required();
    AddOutput(*command, request.outputFile, request.force, ".csv");
}

/// Prints the help or the version that was asked for, or says what cannot be understood.
ExitCode EndOfParsing(const CLI::App& program, const CLI::ParseError& error) {
    std::ostringstream asked, faults;
    if (program.exit(error, asked, faults) == 0) {
        WriteOutput(asked.str());
        return EndOutput() ? ExitDone : Fail("standard output could not be written");
    }
    // The fault may quote the user's words and their line ends; what follows it is the parser's own.
    const std::string fault = error.what();
    WriteErrorLine(CutMessage(fault));
    std::istringstream advice(faults.str().substr(std::min(fault.size() + 1, faults.str().size())));
    for (std::string line; std::getline(advice, line);)
        WriteErrorLine(line);
    return ExitUsage;
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
        "Exit codes: 0 done, 1 the data or an option cannot be used, 2 wrong usage,\n"
        "130 interrupted.");
    std::string file;
    program.add_option("FILE", file, "A dataset to open in the window");
    CalcRequest calc;
    AddCalc(program, calc);
    CompareRequest compare;
    AddCompare(program, compare);
    PlotCommandRequest plot;
    AddPlot(program, plot);
    GenerateRequest generate;
    AddGenerate(program, generate);
    ImportRequest import;
    AddImport(program, import);
    ExportRequest exported;
    AddExport(program, exported);

    const std::vector<std::string> words(arguments + 1, arguments + argumentCount);
    const auto named = [&](const CLI::App* command) {
        return !words.empty() && command->get_name() == words[0];
    };
    const bool subcommand =
        !words.empty() && (words[0].starts_with('-') || !program.get_subcommands(named).empty());
    if (!subcommand && IsSwitchLine(words))
        return RunSwitchLine(words);
    for (const std::string& word : words)
        if (!IsValidUtf8(word))
            return Fail("an argument is no valid UTF-8: " + QuotedForMessage(FromWindows1252(word)));

    try {
        program.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        return EndOfParsing(program, error);
    }
    if (program.got_subcommand("calc"))
        return RunCalc(calc);
    if (program.got_subcommand("compare"))
        return RunCompare(compare);
    if (program.got_subcommand("plot"))
        return RunPlot(plot);
    if (program.got_subcommand("generate"))
        return RunGenerate(generate);
    if (program.got_subcommand("import"))
        return RunImport(import);
    if (program.got_subcommand("export"))
        return RunExport(exported);
    return Fail("this build has no window; to evaluate a file: corvane calc " +
                (file.empty() ? "FILE.KOV" : file));
}

} // namespace corvane
