#include "plots/point_plot.h"

#include "core/format/numbers.h"

namespace corvane {

PlotRequest PointPlot(PlotTitles titles, const SharedColumn& x, SharedColumn y, const SessionState& session) {
    constexpr std::size_t points = 3; // the chart column that is drawn
    PlotRequest request;
    request.PointCount = static_cast<std::int32_t>(y->size());
    request.ColumnCount = points;
    request.Footnote = "n = " + PlainNumber(static_cast<double>(y->size()));
    request.Title = std::move(titles.title);
    request.XAxisTitle = std::move(titles.xAxis);
    request.YAxisTitle = std::move(titles.yAxis);
    request.MarkerStyle[points] = 1;
    request.Blue[points] = 255;
    request.WindowName = DatasetTitle(session);
    request.ChartData = {x, x, std::move(y)};
    return request;
}

} // namespace corvane
