#include "analyses/msep.h"

#include "report/transition.h"

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
    section.Blank();
    Line(section, "MSEP Decomposition " + number + ":");
    for (const Component& component : components)
        run.Statement([&] {
            const double part = run.errors.MSEPParts[component.part];
            const std::string name = number + "." + component.name;
            Line(section, component.label, F(11, 5, part).Named(name), " (",
                 F(7, 3, Divide(100 * part, run.errors.MSEP)).Named(name + "Percent"), " %)");
        });
}

} // namespace

void WriteMsep(RunState& run) {
    const double MSEP = run.errors.MSEP, VarMSEP = run.errors.VarMSEP;
    ReportSection& section =
        run.report.BeginSection({"msep", "MEAN SQUARE ERROR OF PREDICTION (Bibby and Toutenburg, 1977)"});
    const auto write = [&](const char* label, const char* name, auto value) {
        run.Statement([&] { Line(section, label, F(11, 5, value()).Named(name)); });
    };
    write("Mean Square Error of Prediction     : ", "MSEP", [&] { return MSEP; });
    if (MSEP <= 0)
        return;
    write("Variance of MSEP                    : ", "VarMSEP", [&] { return VarMSEP; });
    write("Standard deviation of MSEP          : ", "SDMSEP", [&] { return SquareRoot(VarMSEP); });
    write("Coefficient of variation of MSEP, % : ", "CVMSEP",
          [&] { return Divide(SquareRoot(VarMSEP) * 100, MSEP); });
    write("Square root of MSEP (RMSEP)         : ", "RMSEP", [&] { return SquareRoot(MSEP); });
    write("RMSEP, % of mean X                  : ", "RMSEPPercentOfX",
          [&] { return Divide(SquareRoot(MSEP) * 100, run.pairs.MeanX); });
    write("RMSEP, % of mean Y                  : ", "RMSEPPercentOfY",
          [&] { return Divide(SquareRoot(MSEP) * 100, run.pairs.MeanY); });
    WriteDecomposition(run, section, "I", firstDecomposition);
    WriteDecomposition(run, section, "II", secondDecomposition);
}

} // namespace corvane
