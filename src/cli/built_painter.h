#pragma once

#include "plots/picture_painter.h"

#include <memory>

namespace corvane {

/// The painter of this program; null where it was built without charts.
std::unique_ptr<PicturePainter> BuiltPainter();

} // namespace corvane
