#include "analyses/residual_analysis.h"

#include "analyses/normality_test.h"
#include "analyses/residual_limits.h"
#include "analyses/residual_places.h"
#include "analyses/residual_table.h"
#include "analyses/residue_regression.h"
#include "core/format/paths.h"
#include "stats/cancellation.h"

#include <string>
#include <string_view>

namespace corvane {
namespace {

/// Begins the section in the report that its text goes to.
Report& BeginResidualSection(RunState& run) {
    const SectionFrame& frame = ResidualAnalysisSection.frame;
    if (!IsSet(run.Options().RESIDUE_WINDOW)) {
        run.report.BeginSection(frame);
        return run.report;
    }
    run.windows.push_back({"residue", "Residue Analyses - ", Report(std::string(frame.id))});
    Report& content = run.windows.back().content;
    content.Current().title = frame.title;
    content.Current().places = frame.places;
    content.SetApart();
    return content;
}

void WriteComments(ReportSection& section, const stats::InfluenceLimits& limits) {
    section.Note("!! .NormRes is the expected residual value under the normality assumption !!");
    section.Note("!! .SemiSdtR is the semi studentized residue !!");
    section.Note(
        "!! .RStdtRes is used to identify outliers usually when outside of the range -2.5 to 2.5 !!");
    section.Note("!! .Leverage is used to identify points with high leverage; if Leverage > " +
                 section.Shown("LeverageLimit", limits.Leverage) + " !!");
    section.Note("!! .Cook's D identifies the influence of the ith point on all fitted values; if "
                 "P(F(Cook's D, p, n-p)) > 0.5 !!");
    section.Note("!! .DFFITS is used to identify the influence of the ith point on the fitted value; if "
                 "|DFFITS| > " +
                 section.Shown("DFFITSLimit", limits.DFFITS) + " !!");
    section.Blank();
}

/// The table with its header and a rule on both sides; the rule that closes the whole listing comes later in
/// the text, but follows at once in a file.
void WriteTable(ReportSection& section, const std::string& header, const ResidualTable& table) {
    section.BeginTable(table.titles);
    section.TableHead(header);
    section.Rule(table.RuleLength());
    section.List(table.rows);
    section.Rule(table.RuleLength());
}

/// What the residue file shall hold. Its name is in the report's text, so it is reserved by now.
void WriteFile(RunState& run, ReportSection& section, const ResidualTable& table) {
    Report file;
    ReportSection& lines = file.Current();
    lines.places = {ResidualPlaces};
    lines.Heading("Analysis of Residuals", '=');
    lines.Text("Data file: " + FileNameOf(run.session.CurrentDatasetName));
    lines.Blank();
    WriteTable(lines, table.fileHeader, table);
    lines.Rule(table.RuleLength());
    // A million rows take seconds to format.
    file.Write(
        [&](std::string_view part) {
            stats::ThrowIfCancelled(run.stop);
            run.residueText += part;
        },
        "\r\n");
    section.Text("Residue calculation saved in file:" + run.snapshot.residueFile);
    section.Blank();
}

void WriteInfluence(ReportSection& section, const ResidualTable& table,
                    const stats::InfluenceLimits& limits) {
    section.Heading("Number of Influential Points");
    const auto count = [&](const std::string& column) {
        return RowItem("Influential." + column, table.Starred(column));
    };
    section.Row({count("Deviation")});
    section.Row({count("Residue")});
    section.Row({count("RStdtRes")});
    section.Row({{"LeverageLimit", limits.Leverage}, count("Leverage")});
    section.Row({count("CookD")});
    section.Row({{"DFFITSLimit", limits.DFFITS}, count("DFFITS")});
    section.Blank();
    section.Blank();
}

void WriteNormality(RunState& run, ReportSection& section) {
    section.Heading("Empirical Distribution Function for Normality", '=');
    const auto test = [&](const char* heading, const std::vector<double>& sample, const char* prefix) {
        section.Text(heading);
        run.Statement([&] { NormalityTest(section, sample, prefix, run.stop); });
        section.Blank();
        section.Blank();
    };
    test("*** Residue", run.residuals.Residue, "Residue.");
    test("*** Studentized Residue", run.residuals.StdtRes, "StdtRes.");
    test("*** Studentized Residue with the current observation removed", run.residuals.RStdtRes, "RStdtRes.");
}

void WriteEnvelope(RunState& run, ReportSection& section, const ResidualTable& table) {
    const double lower = run.session.DeviationLower, upper = run.session.DeviationUpper;
    const double above = table.Count("Deviation", [&](double value) { return value > upper; });
    const double below = table.Count("Deviation", [&](double value) { return value < lower; });
    const auto percent = [&](double count) { return count * 100 / run.N(); };
    section.Heading("Deviation Envelope");
    section.Row({{"DeviationLower", lower}, {"DeviationUpper", upper}, "]"});
    run.Statement([&] { section.Row({{"DeviationPercentOfMeanY", Percent(-lower, run.pairs.MeanY)}, "%"}); });
    run.Statement([&] { section.Row({{"Confidence", run.session.DeviationCIProb * 100}}); });
    section.Row({{"Above", above}, {"AbovePercent", percent(above)}, "%)"});
    section.Row({{"Below", below}, {"BelowPercent", percent(below)}, "%)"});
    section.Row({{"OutsidePercent", percent(above + below)}, "%"});
}

void Write(RunState& run) {
    ReportSection& section = BeginResidualSection(run).Current();
    SetMissingLimits(run);
    const stats::InfluenceLimits limits = stats::InfluenceLimitsOf(run.N());
    const ResidualTable table = ListResiduals(run, limits);
    const bool fileAskedFor = IsSet(run.Options().SAVE_RESIDUE_TEXT);
    const bool toFile = fileAskedFor && !run.snapshot.residueFile.empty();
    if (fileAskedFor && !toFile)
        run.warnings.push_back("no residue file was written, since there is no folder for it (--out DIR)");

    if (run.Comments())
        WriteComments(section, limits);
    if (toFile)
        WriteFile(run, section, table);
    else
        WriteTable(section, table.header, table);
    section.Text("SE Res = standard error of the residual");
    section.Text("StdtRes = studentized residual, which is the residual divided by its standard error");
    section.Text("RStdtRes = studentized residual with the current observation removed");
    section.Text("Leverage = diagonal element in the H matrix; used to detect extreme points in the dataset");
    section.Blank();
    WriteInfluence(section, table, limits);
    WriteNormality(run, section);
    WriteEnvelope(run, section, table);
    if (!toFile)
        section.Rule(table.RuleLength());

    if (ResidueRegressionSection.gate.IsOpen(run.Options()))
        RunSection(run, ResidueRegressionSection);
}

} // namespace

const SectionDefinition ResidualAnalysisSection{
    .frame = {"residual_analysis", "RESIDUAL ANALYSES", {ResidualPlaces, NormalityPlaces}},
    .gate = {&AnalysisOptions::RESIDUAL_ANALYSIS},
    .progress = "Residual analysis...",
    .meaning = "What the line leaves of each pair, which pairs have too much influence, and whether the "
               "residuals are normal.",
    .papers = "neter1996",
    .write = Write,
};

} // namespace corvane
