#include "charts/chart_export.h"

#include "plots/chart_operations.h"
#include "plots/dataset_plots.h"
#include "plots/histogram.h"
#include "plots/xy_plot.h"
#include "support/golden.h"
#include "support/temporary_folder.h"

#include <QImage>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace corvane {
namespace {

using Values = std::vector<double>;

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at)
        ++count;
    return count;
}

std::string Rendered(const ChartModel& chart, ChartFormat format = ChartFormat::Svg) {
    const ChartPicture picture = RenderChart(chart, format);
    EXPECT_EQ(picture.failure, "");
    return picture.bytes;
}

/// A dataset's plot of five points, one of them excluded, and one gap.
ChartModel Scatter() {
    Dataset dataset;
    const std::vector<std::pair<double, const char*>> pairs = {
        {1, "2"}, {2, "9"}, {3, "1"}, {4, "none"}, {5, "6"}};
    for (std::int32_t row = 1; const auto& [x, y] : pairs) {
        dataset.cells.Set(ColumnX, row, x);
        dataset.cells.Set(ColumnY, row++, std::string_view(y));
    }
    dataset.cells.Set(ColumnExclude, 2, std::string_view("Y"));
    dataset.options.SHOW_EXCLUDED = 1;
    dataset.options.SAME_SCALE_XY = 0;
    return ScatterPlot(dataset, {}).charts.at(0);
}

/// A histogram of two samples in four bins.
ChartModel BothSamples(bool AnalysisOptions::*style, bool flat) {
    constexpr double ys[] = {1, 1, 2, 3, 5, 8, 13};
    Dataset dataset;
    for (std::int32_t row = 1; row <= 7; ++row) {
        dataset.cells.Set(ColumnX, row, static_cast<double>(row));
        dataset.cells.Set(ColumnY, row, ys[row - 1]);
    }
    dataset.options.HIST_BINS = "4";
    dataset.options.HIST_2D = flat;
    dataset.options.*style = true;
    return HistogramPlots(dataset).charts.at(0);
}

TEST(ChartExport, ScatterHasItsMarksAndTexts) {
    const std::string svg = Rendered(Scatter());
    EXPECT_EQ(Count(svg, "<circle"), 3u + 1); // and the one of the legend
    for (const char* text : {">Observed vs Model-Predicted<", ">Model-Predicted (X)<", ">Observed (Y)<",
                             ">Obs<", ">Y=X<", ">Excluded<"})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    ChartModel plain = Scatter();
    plain.legend = false;
    SetLogarithmic(plain, Direction::X, true);
    EXPECT_EQ(Count(Rendered(plain), ">Obs<"), 0u);
    plain.series[0].labels[0] = "first & <last>";
    plain.title = "a < b & c";
    EXPECT_EQ(Count(Rendered(plain), "first &amp; &lt;last&gt;"), 1u);
    EXPECT_EQ(Count(Rendered(plain), "a < b"), 0u);
    ChartModel far = Scatter();
    far.series[0].y = ShareColumn({1e300, 2, 3, 4, 5});
    far.sharedScale = false;
    EXPECT_NE(RenderChart(far, ChartFormat::Svg).failure, "");
}

/// Every number of the points of a picture's lines, from which nothing is cut off that lies outside.
TEST(ChartExport, NothingReachesOverTheFrame) {
    ChartModel chart = Scatter();
    chart.statistics = true;
    chart.statisticLines.showTrend = true;
    SetLogarithmic(chart, Direction::Y, true);
    const std::string svg = Rendered(chart);
    double highest = 0;
    for (std::size_t at = 0; (at = svg.find("<polyline", at)) != std::string::npos; ++at) {
        std::istringstream places(svg.substr(svg.find("points=\"", at) + 8));
        double x = 0, y = 0;
        for (char comma; places >> x >> comma >> y;)
            highest = std::max(highest, y);
    }
    EXPECT_GT(highest, 300);
    EXPECT_LT(highest, 525); // where the axis's labels are
}

TEST(ChartExport, EveryHistogramIsPainted) {
    // A bar for each bin that is not empty and one in the legend.
    const auto coloured = [](const std::string& svg, const char* colour) {
        return Count(svg, std::string("fill=\"") + colour);
    };
    const std::string bars = Rendered(BothSamples(&AnalysisOptions::HIST_BAR, true));
    EXPECT_GE(coloured(bars, "#ff8000"), 4u);
    EXPECT_GE(coloured(bars, "#0080c0"), 4u);
    for (const auto style :
         {&AnalysisOptions::HIST_BAR, &AnalysisOptions::HIST_LINE, &AnalysisOptions::HIST_AREA,
          &AnalysisOptions::HIST_STEP, &AnalysisOptions::HIST_Pie})
        for (const bool flat : {true, false}) {
            const std::string svg = Rendered(BothSamples(style, flat));
            EXPECT_NE(svg.find("Histogram of X and Y"), std::string::npos);
            EXPECT_NE(svg.find("R04"), std::string::npos);
            EXPECT_NE(svg.find("Histogram Range:R01"), std::string::npos);
            EXPECT_GE(coloured(svg, style == &AnalysisOptions::HIST_Pie && flat ? "#e69f00" : "#"), 1u);
        }
}

TEST(ChartExport, ShadowsLieWhereTheyAreAskedFor) {
    const auto dark = [](bool area, bool plot) {
        ChartModel chart = Scatter();
        chart.areaShadow = area;
        chart.plotShadow = plot;
        const std::string bytes = Rendered(chart, ChartFormat::Png);
        const QImage image = QImage::fromData(
            QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())), "PNG");
        // In the corner of the picture, and anywhere else.
        int corner = 0, elsewhere = 0;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (const int grey = qGray(image.pixel(x, y)); grey > 180 && grey < 190)
                    ++(x > image.width() - 10 || y > image.height() - 10 ? corner : elsewhere);
        return std::pair(corner > 10000, elsewhere > 10000);
    };
    EXPECT_EQ(dark(false, false), std::pair(false, false));
    EXPECT_EQ(dark(true, false), std::pair(true, false));
    EXPECT_EQ(dark(false, true), std::pair(false, true));
}

TEST(ChartExport, AllFormatsShowTheSame) {
    const ChartModel chart = Scatter();
    for (const auto& [format, name] : {std::pair{ChartFormat::Png, "PNG"}, {ChartFormat::Bmp, "BMP"}}) {
        const std::string bytes = Rendered(chart, format);
        const QImage image = QImage::fromData(
            QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())), name);
        EXPECT_EQ(image.size(), QSize(1600, 1200));
        int dark = 0;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                dark += qGray(image.pixel(x, y)) < 60;
        EXPECT_GT(dark, 2000); // frame, texts and points
    }
    testing::TemporaryFolder folder;
    testing::WriteBytes(folder / "chart.pdf", Rendered(chart, ChartFormat::Pdf));
    ASSERT_EQ(std::system((std::string(PDFTOTEXT) + " -layout '" + (folder / "chart.pdf") + "'").c_str()), 0);
    const std::string text = testing::ReadBytes(folder / "chart.txt");
    for (const char* words :
         {"Observed vs Model-Predicted", "Model-Predicted (X)", "Excluded", "Observed (Y)"})
        EXPECT_NE(text.find(words), std::string::npos) << words << "\n" << text;
}

TEST(ChartExport, AMillionPointsStaySmall) {
    std::mt19937 random(7);
    std::normal_distribution<> normal;
    Values x, y;
    for (int i = 0; i < 1'000'000; ++i) {
        x.push_back(normal(random));
        y.push_back(x.back() + normal(random));
    }
    const PlotPoints points{ShareColumn(std::move(x)), ShareColumn(std::move(y)), {}};
    const std::string png = Rendered(PointChart(ChartKind::Residue, {}, points, {}), ChartFormat::Png);
    EXPECT_LT(png.size(), 4u << 20);
}

TEST(ChartExport, KnowsFormatsByTheirEndings) {
    EXPECT_EQ(ChartFormatOf("a.b/c.SVG"), ChartFormat::Svg);
    EXPECT_FALSE(ChartFormatOf("a.pdf.txt"));
    EXPECT_FALSE(ChartFormatOf("pdf"));
}

} // namespace
} // namespace corvane
