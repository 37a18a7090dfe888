#include "analyses/msep_bootstrap.h"

#include "core/format/numbers.h"
#include "stats/msep_bootstrap.h"

#include <cmath>
#include <limits>
#include <string>

namespace corvane {
namespace {

constexpr Place places[] = {
    {"SubSamples", "bootstrap.count", "Sub-samples           : ", 20},
    {"Size", "bootstrap.size", "Size                  : ", 20},
    {"MeanMSEP", "bootstrap.msep.mean", "Mean MSEP             : ", 20},
    {"VarianceOfMSEP", "bootstrap.msep.variance", "Variance of MSEP      : ", 20},
    {"MeanVarMSEP", "bootstrap.variance.mean", "Mean Var MSEP         : ", 20},
    {"VarianceOfVarMSEP", "bootstrap.variance.variance", "Variance of Var MSEP  : ", 20},
};

/// All 0, with a warning, where the size has no 16-bit count or there are too many sub-samples.
stats::MsepSeries Draw(RunState& run, double percentage, double subSamples, double expected) {
    constexpr double mostSubSamples = 1e8; // two numbers of each are kept
    stats::MsepSeries series;
    const auto warn = [&](const std::string& reason) {
        run.warnings.push_back("bootstrap of MSEP: " + reason +
                               "; no sub-sample was drawn and the results are 0");
    };
    if (!ToInteger16(expected))
        warn(NumberText(percentage) + "% of " + NumberText(run.N()) + " pairs is a sub-sample size of " +
             NumberText(expected) + ", outside the limits of ±" +
             std::to_string(std::numeric_limits<std::int16_t>::max()));
    else if (subSamples > mostSubSamples)
        warn(NumberText(subSamples) + " sub-samples are more than " + NumberText(mostSubSamples));
    else
        run.Statement([&] {
            series = stats::BootstrapMSEP(Integer32(subSamples), percentage, run.residuals.Deviation,
                                          run.snapshot.seed, run.stop,
                                          [&](double share) { run.ShowSectionShare(share); });
        });
    return series;
}

void Write(RunState& run) {
    constexpr std::int16_t fewest = 3; // although the refusal says "greater than"
    const double percentage = LeadingNumber(run.Options().MSPE_BOOTSTRAP_SIZE);
    const double subSamples = LeadingNumber(run.Options().MSPE_BOOTSTRAP_SUBSAMPLE);
    const double expected = percentage * run.N() / 100;

    ReportSection& section = run.report.BeginSection(MsepBootstrapSection.frame);
    if (const auto size = ToInteger16(expected); size && *size < fewest) {
        section.Note("Size of sub-samples has to be greater than 3. Size has to be at least " +
                         PlainNumber(std::floor(300 / run.N())),
                     LineEnd::Open);
        return;
    }
    const stats::MsepSeries series = Draw(run, percentage, subSamples, expected);
    section.Row({{"SubSamples", subSamples}});
    run.Statement([&] { section.Row({{"Size", static_cast<double>(Integer16(expected))}}); });
    section.Row({{"MeanMSEP", series.MSEP.Mean}});
    section.Row({{"VarianceOfMSEP", series.MSEP.Variance}});
    section.Row({{"MeanVarMSEP", series.VarMSEP.Mean}});
    section.Row({{"VarianceOfVarMSEP", series.VarMSEP.Variance}});
}

} // namespace

const SectionDefinition MsepBootstrapSection{
    .frame = {"msep_bootstrap", "BOOTSTRAP ANALYSIS OF MSEP", {places}},
    .gate = {&AnalysisOptions::MSPE_BOOTSTRAP},
    .progress = "MSEP bootstrap...",
    .meaning = "How much MSEP and its variance differ between random sub-samples of the pairs.",
    .papers = "wallach1989",
    .write = Write,
};

} // namespace corvane
