#include "analyses/msep.h"

#include <array>
#include <string>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"MSEP", "msep", "Mean Square Error of Prediction     : ", 11},
    {"VarMSEP", "msep.variance", "Variance of MSEP                    : ", 11},
    {"SDMSEP", "msep.sd", "Standard deviation of MSEP          : ", 11},
    {"CVMSEP", "msep.cv", "Coefficient of variation of MSEP, % : ", 11},
    {"RMSEP", "rmsep", "Square root of MSEP (RMSEP)         : ", 11},
    {"RMSEPPercentOfX", "rmsep.percent_of_x", "RMSEP, % of mean X                  : ", 11},
    {"RMSEPPercentOfY", "rmsep.percent_of_y", "RMSEP, % of mean Y                  : ", 11},
    {"*.MeanBias", "msep.part.mean_bias", "Mean bias ==> Mean X <> Mean Y      : ", 11},
    {"*.MeanBiasPercent", "msep.part.mean_bias.percent", " (", 7, 3},
    {"I.UnequalVariances", "msep.part.unequal_variances", "Unequal variances ==> Sx <> Sy      : ", 11},
    {"I.UnequalVariancesPercent", "msep.part.unequal_variances.percent", " (", 7, 3},
    {"I.IncompleteCovariation", "msep.part.incomplete_covariation",
     "Incomplete (co)variation ==> r <> 1 : ", 11},
    {"I.IncompleteCovariationPercent", "msep.part.incomplete_covariation.percent", " (", 7, 3},
    {"II.SystematicBias", "msep.part.systematic_bias", "Systematic bias ==> b <> 1          : ", 11},
    {"II.SystematicBiasPercent", "msep.part.systematic_bias.percent", " (", 7, 3},
    {"II.RandomErrors", "msep.part.random_errors", "Random errors ==> r2 <> 1           : ", 11},
    {"II.RandomErrorsPercent", "msep.part.random_errors.percent", " (", 7, 3},
};

struct Component {
    const char* place;
    std::size_t part; ///< of MSEPParts
};

using Decomposition = std::array<Component, 3>;

constexpr Decomposition firstDecomposition{
    {{"*.MeanBias", 0}, {"I.UnequalVariances", 1}, {"I.IncompleteCovariation", 2}}};
constexpr Decomposition secondDecomposition{
    {{"*.MeanBias", 0}, {"II.SystematicBias", 3}, {"II.RandomErrors", 4}}};

void WriteDecomposition(RunState& run, ReportSection& section, const std::string& number,
                        const Decomposition& components) {
    section.Blank();
    section.Text("MSEP Decomposition " + number + ":");
    for (const auto& [place, index] : components)
        run.Statement([&, name = std::string(place), part = run.errors.MSEPParts[index],
                       share = run.errors.MSEPShares[index]] {
            section.Row({{name, part, number}, {name + "Percent", 100 * share, number}, " %)"});
        });
}

void Write(RunState& run) {
    const stats::ErrorMeasures& errors = run.errors;
    ReportSection& section = run.report.BeginSection(MsepSection.frame);
    const auto row = [&](const char* place, auto value) {
        run.Statement([&] { section.Row({{place, value()}}); });
    };
    row("MSEP", [&] { return errors.MSEP; });
    if (errors.RMSEP <= 0)
        return;
    row("VarMSEP", [&] { return errors.VarMSEP; });
    row("SDMSEP", [&] { return errors.SDMSEP; });
    row("CVMSEP", [&] { return 100 * errors.CVMSEP; });
    row("RMSEP", [&] { return errors.RMSEP; });
    row("RMSEPPercentOfX", [&] { return Percent(errors.RMSEP, run.pairs.MeanX); });
    row("RMSEPPercentOfY", [&] { return Percent(errors.RMSEP, run.pairs.MeanY); });
    WriteDecomposition(run, section, "I", firstDecomposition);
    WriteDecomposition(run, section, "II", secondDecomposition);
}

} // namespace

const SectionDefinition MsepSection{
    .frame = {"msep", "MEAN SQUARE ERROR OF PREDICTION (Bibby and Toutenburg, 1977)", {places}},
    .gate = {&AnalysisOptions::MSEP_ANALYSIS},
    .progress = "MSEP analysis...",
    .meaning =
        "How large the errors of prediction are on the whole, and which kinds of error they consist of.",
    .papers = "bibby1977; wallach1989",
    .write = Write,
};

} // namespace corvane
