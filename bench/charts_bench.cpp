// How long a scatter plot takes to paint, beside plain ellipses of the same number and size.
#include "charts/chart_painter.h"
#include "charts/qt_environment.h"
#include "plots/xy_plot.h"

#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <qcustomplot.h>
#include <random>

namespace {

using namespace corvane;

constexpr int width = 800, height = 600;

PlotPoints Points(std::int64_t count) {
    std::mt19937 random(3);
    std::normal_distribution<> normal;
    std::vector<double> x, y;
    for (std::int64_t i = 0; i < count; ++i) {
        x.push_back(normal(random));
        y.push_back(x.back() + normal(random));
    }
    return {ShareColumn(std::move(x)), ShareColumn(std::move(y)), {}};
}

void Chart(benchmark::State& state) {
    PrepareQt();
    const ChartModel chart =
        PointChart(ChartKind::Scatter, {"Observed vs Model-Predicted", "", ""}, Points(state.range(0)), {});
    for (auto _ : state) {
        QCustomPlot plot;
        plot.resize(width, height);
        PaintChart(plot, chart, {width, height});
        QImage image = plot.toPixmap(width, height).toImage();
        benchmark::DoNotOptimize(image.bits());
    }
}

void PlainEllipses(benchmark::State& state) {
    PrepareQt();
    const PlotPoints points = Points(state.range(0));
    constexpr double diameter = 100.0 / 20 * 96 / 72; // as the chart's
    for (auto _ : state) {
        QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::white, 0.8));
        painter.setBrush(Qt::black);
        for (std::size_t i = 0; i < points.x->size(); ++i)
            painter.drawEllipse(QPointF(width / 2 + 80 * (*points.x)[i], height / 2 - 60 * (*points.y)[i]),
                                diameter / 2, diameter / 2);
        benchmark::DoNotOptimize(image.bits());
    }
}

BENCHMARK(PlainEllipses)->Arg(20'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Chart)->Arg(20'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace
