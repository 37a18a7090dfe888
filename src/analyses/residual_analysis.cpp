#include "analyses/residual_analysis.h"

#include "report/transition.h"

#include "analyses/normality_test.h"
#include "analyses/residual_limits.h"
#include "analyses/residual_table.h"
#include "analyses/residue_regression.h"
#include "core/format/paths.h"

#include <string>

namespace corvane {
namespace {

/// Begins the section in the report that its text goes to.
Report& BeginResidualSection(RunState& run) {
    const char* id = "residual_analysis";
    const char* title = "RESIDUAL ANALYSES";
    if (!IsSet(run.Options().RESIDUE_WINDOW)) {
        run.report.BeginSection({id, title, {ResidualPlaces(), NormalityPlaces()}});
        return run.report;
    }
    run.windows.push_back({"residue", "Residue Analyses - ", Report(id)});
    Report& content = run.windows.back().content;
    content.Current().title = title;
    content.Current().places = {ResidualPlaces(), NormalityPlaces()};
    content.SetApart();
    return content;
}

void WriteComments(ReportSection& section, const InfluenceLimits& limits) {
    Line(section, "!! .NormRes is the expected residual value under the normality assumption !!");
    Line(section, "!! .SemiSdtR is the semi studentized residue !!");
    Line(section,
         "!! .RStdtRes is used to identify outliers usually when outside of the range -2.5 to 2.5 !!");
    Line(section, "!! .Leverage is used to identify points with high leverage; if Leverage > ",
         F(6, 4, limits.Leverage).text, " !!");
    Line(section, "!! .Cook's D identifies the influence of the ith point on all fitted values; if "
                  "P(F(Cook's D, p, n-p)) > 0.5 !!");
    Line(section,
         "!! .DFFITS is used to identify the influence of the ith point on the fitted value; if "
         "|DFFITS| > ",
         F(6, 4, limits.DFFITS).text, " !!");
    section.Blank();
}

/// The table with its header and a rule on both sides; the rule that closes the whole listing comes later in
/// the text, but follows at once in a file.
void WriteTable(ReportSection& section, const std::string& header, const ResidualTable& table) {
    Line(section, header);
    Line(section, table.Rule());
    section.List(table.rows);
    Line(section, table.Rule());
}

/// What the residue file shall hold. Its name is in the report's text, so it is reserved by now.
void WriteFile(RunState& run, ReportSection& section, const ResidualTable& table) {
    Report file;
    ReportSection& lines = file.Current();
    lines.places = {ResidualPlaces()};
    lines.Heading("Analysis of Residuals", '=');
    lines.Text("Data file: " + FileNameOf(run.session.CurrentDatasetName));
    lines.Blank();
    WriteTable(lines, table.fileHeader, table);
    lines.Text(table.Rule());
    run.residueText = file.Text();
    section.Text("Residue calculation saved in file:" + run.snapshot.residueFile);
    section.Blank();
}

void WriteInfluence(ReportSection& section, const ResidualTable& table, const InfluenceLimits& limits) {
    Line(section, "Number of Influential Points");
    Line(section, std::string(28, '-'));
    const auto count = [&](const char* name) {
        return F0(4, 0, table.Starred(name)).Named(std::string("Influential.") + name);
    };
    Line(section, "Deviation                               : ", count("Deviation"));
    Line(section, "Residue                                 : ", count("Residue"));
    Line(section, "RStdtResidue (<-2.5 or >2.5)            : ", count("RStdtRes"));
    Line(section, "Leverage > ", F(6, 4, limits.Leverage).Named("LeverageLimit"), "                       : ",
         count("Leverage"));
    Line(section, "Cook's D (P(F(Cook's D, p, n-p)) > 0.5) : ", count("CookD"));
    Line(section, "|DFFITS| > ", F(6, 4, limits.DFFITS).Named("DFFITSLimit"), "                       : ",
         count("DFFITS"));
    section.Blank();
    section.Blank();
}

void WriteNormality(RunState& run, ReportSection& section) {
    Line(section, "Empirical Distribution Function for Normality");
    Line(section, std::string(45, '='));
    const auto test = [&](const char* heading, const std::vector<double>& sample, const char* prefix) {
        Line(section, heading);
        section.Statement([&] { NormalityTest(section, sample, prefix); });
        section.Blank();
        section.Blank();
    };
    test("*** Residue", run.residuals.Residue, "Residue.");
    test("*** Studentized Residue", run.residuals.StdtRes, "StdtRes.");
    test("*** Studentized Residue with the current observation removed", run.residuals.RStdtRes, "RStdtRes.");
}

void WriteEnvelope(const RunState& run, ReportSection& section, const ResidualTable& table) {
    const double lower = run.session.DeviationLower, upper = run.session.DeviationUpper;
    const double above = table.Count("Deviation", [&](double value) { return value > upper; });
    const double below = table.Count("Deviation", [&](double value) { return value < lower; });
    const auto percent = [&](double count) { return F(10, 5, count * 100 / run.N()); };
    Line(section, "Deviation Envelope");
    Line(section, std::string(18, '-'));
    Line(section, "Deviation interval [lower - upper]                     : [",
         F(10, 4, lower).Named("DeviationLower").Trimmed(), ", ",
         F(10, 4, upper).Named("DeviationUpper").Trimmed(), "]");
    section.Statement([&] {
        Line(section, "Deviation interval as ± % of the Mean of Y (observed)  : ",
             F(10, 4, Divide(-lower * 100, run.pairs.MeanY)).Named("DeviationPercentOfMeanY"), "%");
    });
    section.Statement([&] {
        Line(section, "Approximate (1 - Alpha), %                             :",
             F(10, 2, run.session.DeviationCIProb * 100).Named("Confidence"));
    });
    Line(section, "Number of data points above the upper acceptance limit :", F(10, 0, above).Named("Above"),
         " (", percent(above).Named("AbovePercent"), "%)");
    Line(section, "Number of data points below the lower acceptance limit :", F(10, 0, below).Named("Below"),
         " (", percent(below).Named("BelowPercent"), "%)");
    Line(section, "Percentage of data points out of the acceptance limits :",
         percent(above + below).Named("OutsidePercent"), "%");
}

} // namespace

void WriteResidualAnalysis(RunState& run) {
    Report& report = BeginResidualSection(run);
    ReportSection& section = report.Current();
    SetMissingLimits(run, section);
    const InfluenceLimits limits = InfluenceLimitsOf(run.N());
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
    Line(section, "SE Res = standard error of the residual");
    Line(section, "StdtRes = studentized residual, which is the residual divided by its standard error");
    Line(section, "RStdtRes = studentized residual with the current observation removed");
    Line(section,
         "Leverage = diagonal element in the H matrix; used to detect extreme points in the dataset");
    section.Blank();
    WriteInfluence(section, table, limits);
    WriteNormality(run, section);
    WriteEnvelope(run, section, table);
    if (!toFile)
        Line(section, table.Rule());

    if (IsSet(run.Options().RESIDUAL_REGRESSION_PLOT)) {
        run.progress.ShowStage("Residue regression...");
        WriteResidueRegression(run, report);
    }
}

} // namespace corvane
