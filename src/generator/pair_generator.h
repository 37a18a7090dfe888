#pragma once

#include "core/dataset.h"
#include "platform/dialogs.h"
#include "platform/random.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

/// How X and Y are joined.
enum class PairMethod { Frank, Clayton, Harlow };

/// Pairs of normal X (predicted) and Y (observed) to be drawn.
struct PairRequest {
    PairMethod method = PairMethod::Frank;
    std::int32_t N = 0;
    double MeanX = 0, MeanY = 0;
    double VarX = 0, VarY = 0;
    double r = 0; ///< Correlation of X and Y; 1 counts as 0.999.
};

/// The texts of the window's boxes.
struct GeneratorBoxes {
    std::string points, MeanX, MeanY, VarX, VarY, r;
};

/// Reads the boxes as the window does: with a "0" put before each text, so that an empty box is 0 and a minus
/// sign does not convert. The points are made a whole number first, halves to the even one, which an empty
/// box does not survive. Throws RunFailure on a text that does not convert. Fewer than three points are
/// refused before the other boxes are looked at, which then stay 0.
PairRequest ReadGeneratorBoxes(const GeneratorBoxes& boxes, PairMethod method);

/// The critical message of a request that cannot be met, or "".
std::string RefusalOf(const PairRequest& request);

struct RandomPairs {
    std::vector<double> X, Y;
};

/// Draws the pairs of a request that is not refused. The same seed gives the same pairs. Throws RunFailure
/// where means and variances are so large that a value leaves the range of a double.
RandomPairs DrawPairs(const PairRequest& request, std::uint64_t seed);

enum class GenerationEnd { Refused, Declined, Written };

/// The Execute action: checks the request, draws the pairs and puts them in place of the dataset's cells.
/// Unless `overwrite`, it asks first where the first X cell is filled. Options but the number of rows stay,
/// and so do the notes. A request that is refused, or fails as in DrawPairs, changes nothing.
GenerationEnd GeneratePairs(const PairRequest& request, bool overwrite, Dataset& dataset, Dialogs& dialogs,
                            Random& random);

} // namespace corvane
