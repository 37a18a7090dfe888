#include "analyses/distance_analysis.h"

#include "core/format/numbers.h"
#include "stats/distances.h"

#include <string>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"Euclidean", "distance.euclidean", "Euclidean        : ", 8, 3},
    {"Minkowski_*", "distance.minkowski", "", 8, 3},
    {"Canberra", "distance.canberra", "Canberra         : ", 8, 3},
    {"Czekanowski", "distance.czekanowski", "Czekanowski      : ", 8, 3},
    {"KullbackLeibler", "distance.kullback_leibler", "Kullback-Leibler : ", 8, 3},
};

void Write(RunState& run) {
    constexpr int orders = 7;
    ReportSection& section = run.report.BeginSection(DistanceAnalysisSection.frame);
    if (run.Comments()) {
        section.Note("!! .Minkowski m = 1 is also known as Manhattan distance !!");
        section.Blank();
    }
    const auto row = [&](const char* place, double distance) {
        run.Statement([&] { section.Row({{place, distance}}); });
    };
    const auto distancesOf = [&](double order) {
        return stats::DistanceMeasures(run.arrays.X, run.arrays.Y, order, run.stop);
    };
    const stats::Distances distances = distancesOf(1);
    row("Euclidean", distances.Euclidean);
    for (int m = 1; m <= orders; ++m) {
        const double distance = distancesOf(m).Minkowski;
        run.Statement([&] {
            section.Row({"Minkowski, m =" + PlainNumber(static_cast<double>(m)) + " : ",
                         {"Minkowski_*", distance, std::to_string(m)}});
        });
    }
    row("Canberra", distances.Canberra);
    row("Czekanowski", distances.Czekanowski);
    row("KullbackLeibler", distances.KullbackLeibler);
    section.Rule(30);
}

} // namespace

const SectionDefinition DistanceAnalysisSection{
    // The escape keeps the title's end from being a trigraph.
    .frame = {"distance_analysis", "DISTANCE ANALYSIS (??\?)", {places}},
    .gate = {&AnalysisOptions::DISTANCE_ANALYSIS},
    .meaning = "How far the predicted values as a whole are from the observed ones, by several distances.",
    .papers = "kraiklo2006",
    .write = Write,
};

} // namespace corvane
