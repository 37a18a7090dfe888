#include "cli/built_painter.h"

#if CORVANE_CHARTS
#include "charts/child_painter.h"
#include "cli/report_clock.h"
#endif

namespace corvane {

std::unique_ptr<PicturePainter> BuiltPainter() {
#if CORVANE_CHARTS
    return std::make_unique<ChildPainter>(SourceDate());
#else
    return nullptr;
#endif
}

} // namespace corvane
