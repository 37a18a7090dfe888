#include "stats/msep_bootstrap.h"

#include "stats/cancellation.h"
#include "stats/error_measures.h"

#include <algorithm>
#include <random>
#include <vector>

namespace corvane::stats {
namespace {

/// Uniform in [0, 1), 53 bits. The standard fixes what its generators draw, not what its distributions make
/// of it.
double Uniform(std::mt19937_64& generator) {
    return static_cast<double>(static_cast<std::int64_t>(generator() >> 11)) * 0x1p-53;
}

/// Counts elements and looks at the stop token before they are too many.
class Draws {
public:
    Draws(const std::stop_token& token, const std::function<void(double)>& listener)
        : stop(token), share(listener) {}

    /// How many elements may follow until the next look.
    std::size_t Left() const { return ElementsBetweenLooks - handled; }

    /// Notes that elements were handled, no more than there were left.
    void Handled(std::size_t elements, double done) {
        handled += elements;
        if (handled < ElementsBetweenLooks)
            return;
        handled = 0;
        ThrowIfCancelled(stop);
        if (share)
            share(done);
    }

private:
    const std::stop_token& stop;
    const std::function<void(double)>& share;
    std::size_t handled = 0;
};

} // namespace

MsepSeries BootstrapMSEP(std::int32_t subSamples, double percentage, std::span<const double> differences,
                         std::uint64_t seed, const std::stop_token& stop,
                         const std::function<void(double)>& share) {
    const std::size_t size = differences.size();
    std::mt19937_64 generator(seed);
    Draws draws(stop, share);
    std::vector<double> kept(size), msep, variances;
    for (std::int32_t round = 0; round < subSamples; ++round) {
        std::size_t count = 0;
        for (std::size_t begin = 0; begin < size;) {
            const auto stretch = differences.subspan(begin, std::min(draws.Left(), size - begin));
            for (const double difference : stretch) {
                kept[count] = difference; // stays only if the count moves on: no branch to guess wrong
                count += Uniform(generator) * 100 <= percentage ? 1 : 0;
            }
            begin += stretch.size();
            const double part = static_cast<double>(begin) / static_cast<double>(size);
            draws.Handled(stretch.size(), (round + part) / subSamples);
        }
        const SquaredError error = MeanSquaredError({kept.data(), count}, stop);
        msep.push_back(error.MSEP);
        variances.push_back(error.VarMSEP);
    }
    return {MeanVariance(msep, stop), MeanVariance(variances, stop)};
}

} // namespace corvane::stats
