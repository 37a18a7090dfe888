#include "analyses/msep_bootstrap.h"

#include "report/transition.h"

#include "core/format/numbers.h"
#include "stats/error_measures.h"

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace corvane {
namespace {

/// Uniform in [0, 1), 53 bits. The standard fixes what its generators draw, not what its distributions make
/// of it.
double Uniform(std::mt19937_64& generator) {
    return static_cast<double>(static_cast<std::int64_t>(generator() >> 11)) * 0x1p-53;
}

} // namespace

MsepSeries BootstrapMSEP(std::int32_t subSamples, double percentage, std::span<const double> differences,
                         std::uint64_t seed) {
    std::mt19937_64 generator(seed);
    std::vector<double> kept(differences.size()), msep, variances;
    for (std::int32_t round = 0; round < subSamples; ++round) {
        std::size_t count = 0;
        for (const double difference : differences) {
            kept[count] = difference; // stays only if the count moves on: no branch to guess wrong
            count += Uniform(generator) * 100 <= percentage ? 1 : 0;
        }
        const stats::SquaredError error = stats::MeanSquaredError({kept.data(), count});
        msep.push_back(error.MSEP);
        variances.push_back(error.VarMSEP);
    }
    return {stats::MeanVariance(msep), stats::MeanVariance(variances)};
}

void WriteMsepBootstrap(RunState& run) {
    constexpr std::int16_t fewest = 3; // although the refusal says "greater than"
    const double percentage = LeadingNumber(run.Options().MSPE_BOOTSTRAP_SIZE);
    const double subSamples = LeadingNumber(run.Options().MSPE_BOOTSTRAP_SUBSAMPLE);
    const double expected = percentage * run.N() / 100;
    const auto size = ToInteger16(expected);

    ReportSection& section = run.report.BeginSection({"msep_bootstrap", "BOOTSTRAP ANALYSIS OF MSEP"});
    if (size && *size < fewest) {
        OpenLine(section, "Size of sub-samples has to be greater than 3. Size has to be at least ",
                 PlainNumber(std::floor(300 / run.N())));
        return;
    }
    constexpr double mostSubSamples = 1e8; // two numbers of each are kept
    MsepSeries series;
    const auto warn = [&](const std::string& reason) {
        run.warnings.push_back("bootstrap of MSEP: " + reason +
                               "; no sub-sample was drawn and the results stand at 0");
    };
    if (!size)
        warn(NumberText(percentage) + "% of " + NumberText(run.N()) + " pairs is a sub-sample size of " +
             NumberText(expected) + ", outside the limits of ±" +
             std::to_string(std::numeric_limits<std::int16_t>::max()));
    else if (subSamples > mostSubSamples)
        warn(NumberText(subSamples) + " sub-samples are more than " + NumberText(mostSubSamples));
    else
        run.Statement([&] {
            series =
                BootstrapMSEP(Integer32(subSamples), percentage, run.residuals.Deviation, run.snapshot.seed);
        });
    Line(section, "Sub-samples           : ", F(20, 5, subSamples).Named("SubSamples"));
    run.Statement([&] {
        Line(section,
             "Size                  : ", F(20, 5, static_cast<double>(Integer16(expected))).Named("Size"));
    });
    Line(section, "Mean MSEP             : ", F(20, 5, series.MSEP.Mean).Named("MeanMSEP"));
    Line(section, "Variance of MSEP      : ", F(20, 5, series.MSEP.Variance).Named("VarianceOfMSEP"));
    Line(section, "Mean Var MSEP         : ", F(20, 5, series.VarMSEP.Mean).Named("MeanVarMSEP"));
    Line(section, "Variance of Var MSEP  : ", F(20, 5, series.VarMSEP.Variance).Named("VarianceOfVarMSEP"));
}

} // namespace corvane
