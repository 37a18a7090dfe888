#include "analyses/distance_analysis.h"

#include "report/transition.h"

#include "core/format/numbers.h"
#include "stats/distances.h"

#include <string>

namespace corvane {

void WriteDistanceAnalysis(RunState& run) {
    constexpr int orders = 7;
    // The escape keeps the title's end from being a trigraph.
    ReportSection& section = run.report.BeginSection({"distance_analysis", "DISTANCE ANALYSIS (??\?)"});
    if (run.Comments()) {
        Line(section, "!! .Minkowski m = 1 is also known as Manhattan distance !!");
        section.Blank();
    }
    const auto write = [&](const std::string& label, double distance, const std::string& name) {
        run.Statement([&] { Line(section, label, F(8, 3, distance).Named(name)); });
    };
    const auto distancesOf = [&](double order) {
        return stats::DistanceMeasures(run.arrays.X, run.arrays.Y, order);
    };
    const stats::Distances distances = distancesOf(1);
    write("Euclidean        : ", distances.Euclidean, "Euclidean");
    for (int m = 1; m <= orders; ++m)
        write("Minkowski, m =" + PlainNumber(static_cast<double>(m)) + " : ", distancesOf(m).Minkowski,
              "Minkowski_" + std::to_string(m));
    write("Canberra         : ", distances.Canberra, "Canberra");
    write("Czekanowski      : ", distances.Czekanowski, "Czekanowski");
    write("Kullback-Leibler : ", distances.KullbackLeibler, "KullbackLeibler");
    Line(section, std::string(30, '-'));
}

} // namespace corvane
