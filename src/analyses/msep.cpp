#include "analyses/msep.h"

#include <array>
#include <string>

namespace corvane {
namespace {

struct Component {
    const char* label;
    const char* name;
    std::size_t part; ///< of MSEPParts
};

constexpr Component meanBias{"Mean bias ==> Mean X <> Mean Y      : ", "MeanBias", 0};

constexpr std::array<Component, 3> firstDecomposition{{
    meanBias,
    {"Unequal variances ==> Sx <> Sy      : ", "UnequalVariances", 1},
    {"Incomplete (co)variation ==> r <> 1 : ", "IncompleteCovariation", 2},
}};

constexpr std::array<Component, 3> secondDecomposition{{
    meanBias,
    {"Systematic bias ==> b <> 1          : ", "SystematicBias", 3},
    {"Random errors ==> r2 <> 1           : ", "RandomErrors", 4},
}};

void WriteDecomposition(RunState& run, ReportSection& section, const std::string& number,
                        const std::array<Component, 3>& components) {
    section.Line();
    section.Line("MSEP Decomposition " + number + ":");
    for (const Component& component : components)
        run.Statement([&] {
            const double part = run.errors.MSEPParts[component.part],
                         share = run.errors.MSEPShares[component.part];
            const std::string name = number + "." + component.name;
            section.Line(component.label, F(11, 5, part).Named(name), " (",
                         F(7, 3, 100 * share).Named(name + "Percent"), " %)");
        });
}

} // namespace

void WriteMsep(RunState& run) {
    const stats::ErrorMeasures& errors = run.errors;
    ReportSection& section =
        run.report.BeginSection("msep", "MEAN SQUARE ERROR OF PREDICTION (Bibby and Toutenburg, 1977)");
    const auto write = [&](const char* label, const char* name, auto value) {
        run.Statement([&] { section.Line(label, F(11, 5, value()).Named(name)); });
    };
    write("Mean Square Error of Prediction     : ", "MSEP", [&] { return errors.MSEP; });
    if (errors.RMSEP <= 0)
        return;
    write("Variance of MSEP                    : ", "VarMSEP", [&] { return errors.VarMSEP; });
    write("Standard deviation of MSEP          : ", "SDMSEP", [&] { return errors.SDMSEP; });
    write("Coefficient of variation of MSEP, % : ", "CVMSEP", [&] { return 100 * errors.CVMSEP; });
    write("Square root of MSEP (RMSEP)         : ", "RMSEP", [&] { return errors.RMSEP; });
    write("RMSEP, % of mean X                  : ", "RMSEPPercentOfX",
          [&] { return Divide(errors.RMSEP * 100, run.pairs.MeanX); });
    write("RMSEP, % of mean Y                  : ", "RMSEPPercentOfY",
          [&] { return Divide(errors.RMSEP * 100, run.pairs.MeanY); });
    WriteDecomposition(run, section, "I", firstDecomposition);
    WriteDecomposition(run, section, "II", secondDecomposition);
}

} // namespace corvane
