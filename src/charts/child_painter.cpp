#include "charts/child_painter.h"

#include "charts/chart_export.h"
#include "platform/native/child_work.h"

#include <cstdlib>
#include <utility>

namespace corvane {

std::string ChildPainter::OutOfReach(const ChartModel& chart) const {
    return corvane::OutOfReach(chart);
}

Pictures ChildPainter::Paint(std::span<const ChartModel> charts, ChartFormat format, ChartSize size) {
    const auto paint = [&](Pieces& painted) -> FileResult {
        if (created)
            ::setenv("TZ", "UTC0", 1); // the time that Qt puts into a PDF file is longer in other zones
        for (const ChartModel& chart : charts) {
            ChartPicture picture = RenderChart(chart, format, size, created);
            if (!picture.failure.empty())
                return {false, picture.failure};
            painted.push_back(std::move(picture.bytes));
        }
        return {true, {}};
    };
    Pictures pictures;
    const FileResult result = DoInChild(paint, pictures.bytes);
    if (!result.done)
        return {{}, "the chart could not be painted: " + result.reason};
    return pictures;
}

} // namespace corvane
