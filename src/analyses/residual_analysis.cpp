#include "analyses/residual_analysis.h"

#include "analyses/normality_test.h"
#include "analyses/residual_limits.h"
#include "analyses/residual_table.h"
#include "analyses/residue_regression.h"
#include "core/format/paths.h"
#include "core/numbered_file.h"

#include <string>

namespace corvane {
namespace {

/// Begins the section in the report that its text goes to.
Report& BeginResidualSection(RunState& run) {
    const char* id = "residual_analysis";
    const char* title = "RESIDUAL ANALYSES";
    if (!IsSet(run.Options().RESIDUE_WINDOW)) {
        run.report.BeginSection(id, title);
        return run.report;
    }
    run.windows.push_back({"residue", "Residue Analyses - ", Report(id)});
    Report& content = run.windows.back().content;
    content.Current().title = title;
    content.SetApart();
    return content;
}

void WriteComments(ReportSection& section, const InfluenceLimits& limits) {
    section.Line("!! .NormRes is the expected residual value under the normality assumption !!");
    section.Line("!! .SemiSdtR is the semi studentized residue !!");
    section.Line(
        "!! .RStdtRes is used to identify outliers usually when outside of the range -2.5 to 2.5 !!");
    section.Line("!! .Leverage is used to identify points with high leverage; if Leverage > ",
                 F(6, 4, limits.Leverage).text, " !!");
    section.Line("!! .Cook's D identifies the influence of the ith point on all fitted values; if "
                 "P(F(Cook's D, p, n-p)) > 0.5 !!");
    section.Line("!! .DFFITS is used to identify the influence of the ith point on the fitted value; if "
                 "|DFFITS| > ",
                 F(6, 4, limits.DFFITS).text, " !!");
    section.Line();
}

/// The table with its header and a rule on both sides; the rule that closes the whole listing comes later in
/// the text, but follows at once in a file.
void WriteTable(ReportSection& section, const std::string& header, const ResidualTable& table) {
    section.Line(header);
    section.Line(table.Rule());
    section.Table(table.rows);
    section.Line(table.Rule());
}

void WriteFile(RunState& run, ReportSection& section, const ResidualTable& table) {
    Report file;
    ReportSection& lines = file.Current();
    lines.Line("Analysis of Residuals");
    lines.Line(std::string(21, '='));
    lines.Line("Data file: " + FileNameOf(run.session.CurrentDatasetName));
    lines.Line();
    WriteTable(lines, table.fileHeader, table);
    lines.Line(table.Rule());

    std::string path;
    const FileResult saved =
        CreateNumbered(run.services.residueFolder, "Residue", 0, file.Text(), run.services.files, path);
    section.Line("Residue calculation saved in file:" + path);
    section.Line();
    if (saved.done) {
        run.residueFile = path;
        return;
    }
    section.failures.push_back(path + ": " + saved.reason);
    run.notSaved.push_back("the residual listing was not saved: " + path + ": " + saved.reason);
}

void WriteInfluence(ReportSection& section, const ResidualTable& table, const InfluenceLimits& limits) {
    section.Line("Number of Influential Points");
    section.Line(std::string(28, '-'));
    const auto count = [&](const char* name) {
        return F0(4, 0, table.Starred(name)).Named(std::string("Influential.") + name);
    };
    section.Line("Deviation                               : ", count("Deviation"));
    section.Line("Residue                                 : ", count("Residue"));
    section.Line("RStdtResidue (<-2.5 or >2.5)            : ", count("RStdtRes"));
    section.Line("Leverage > ", F(6, 4, limits.Leverage).Named("LeverageLimit"), "                       : ",
                 count("Leverage"));
    section.Line("Cook's D (P(F(Cook's D, p, n-p)) > 0.5) : ", count("CookD"));
    section.Line("|DFFITS| > ", F(6, 4, limits.DFFITS).Named("DFFITSLimit"), "                       : ",
                 count("DFFITS"));
    section.Line();
    section.Line();
}

void WriteNormality(RunState& run, ReportSection& section) {
    section.Line("Empirical Distribution Function for Normality");
    section.Line(std::string(45, '='));
    const auto test = [&](const char* heading, const std::vector<double>& sample, const char* prefix) {
        section.Line(heading);
        section.Statement([&] { NormalityTest(section, sample, prefix); });
        section.Line();
        section.Line();
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
    section.Line("Deviation Envelope");
    section.Line(std::string(18, '-'));
    section.Line("Deviation interval [lower - upper]                     : [",
                 F(10, 4, lower).Named("DeviationLower").Trimmed(), ", ",
                 F(10, 4, upper).Named("DeviationUpper").Trimmed(), "]");
    section.Statement([&] {
        section.Line("Deviation interval as ± % of the Mean of Y (observed)  : ",
                     F(10, 4, Divide(-lower * 100, run.pairs.MeanY)).Named("DeviationPercentOfMeanY"), "%");
    });
    section.Statement([&] {
        section.Line("Approximate (1 - Alpha), %                             :",
                     F(10, 2, run.session.DeviationCIProb * 100).Named("Confidence"));
    });
    section.Line("Number of data points above the upper acceptance limit :", F(10, 0, above).Named("Above"),
                 " (", percent(above).Named("AbovePercent"), "%)");
    section.Line("Number of data points below the lower acceptance limit :", F(10, 0, below).Named("Below"),
                 " (", percent(below).Named("BelowPercent"), "%)");
    section.Line("Percentage of data points out of the acceptance limits :",
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
    const bool toFile = fileAskedFor && !run.services.residueFolder.empty();
    if (fileAskedFor && !toFile)
        run.warnings.push_back("no residue file was written, since there is no folder for it (--out DIR)");

    if (run.Comments())
        WriteComments(section, limits);
    if (toFile)
        WriteFile(run, section, table);
    else
        WriteTable(section, table.header, table);
    section.Line("SE Res = standard error of the residual");
    section.Line("StdtRes = studentized residual, which is the residual divided by its standard error");
    section.Line("RStdtRes = studentized residual with the current observation removed");
    section.Line("Leverage = diagonal element in the H matrix; used to detect extreme points in the dataset");
    section.Line();
    WriteInfluence(section, table, limits);
    WriteNormality(run, section);
    WriteEnvelope(run, section, table);
    if (!toFile)
        section.Line(table.Rule());

    if (IsSet(run.Options().RESIDUAL_REGRESSION_PLOT)) {
        run.services.feedback.ShowProgress("Residue regression...");
        WriteResidueRegression(run, report);
    }
}

} // namespace corvane
