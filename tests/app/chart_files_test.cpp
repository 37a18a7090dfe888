#include "app/chart_files.h"

#include "support/fakes.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Strings = std::vector<std::string>;

/// Paints a chart as its title; one named "far" is out of reach, one named "broken" cannot be painted.
class TitlePainter : public PicturePainter {
public:
    std::string OutOfReach(const ChartModel& chart) const override {
        return chart.title == "far" ? "too far" : "";
    }
    Pictures Paint(std::span<const ChartModel> charts, ChartFormat format, ChartSize) override {
        Pictures pictures;
        for (const ChartModel& chart : charts) {
            if (chart.title == "broken")
                return {{}, "no ink"};
            pictures.bytes.push_back((format == ChartFormat::Svg ? "svg " : "other ") + chart.title);
        }
        return pictures;
    }
};

/// A disk that takes no file of this name.
struct OneRefused : testing::MemoryFiles {
    FileResult Replace(const std::string& path, const std::string& bytes) override {
        return path.ends_with("-full.svg") ? FileResult{false, "disk full"}
                                           : MemoryFiles::Replace(path, bytes);
    }
};

std::vector<ChartModel> Titled(const Strings& titles) {
    std::vector<ChartModel> charts(titles.size());
    for (std::size_t i = 0; i < titles.size(); ++i)
        charts[i].title = titles[i];
    return charts;
}

TEST(ChartFiles, OfARunAreNumberedAndEachFailureIsTold) {
    OneRefused files;
    TitlePainter painter;
    Strings written;
    const SavedCharts saved = SaveCharts(Titled({"a", "far", "b/c?", "broken", "full", "", "", "", "", "j"}),
                                         "out", &painter, files, written);
    EXPECT_FALSE(saved.all);
    EXPECT_EQ(saved.warnings, Strings{"the chart 'far' is not saved: too far"});
    EXPECT_EQ(saved.messages, (Strings{"out/plot-04-broken.svg: no ink", "out/plot-05-full.svg: disk full"}));
    EXPECT_EQ(written, (Strings{"plot-01-a.svg", "plot-03-b_c_.svg", "plot-06-.svg", "plot-07-.svg",
                                "plot-08-.svg", "plot-09-.svg", "plot-10-j.svg"}));
    EXPECT_EQ(files.files.at("out/plot-03-b_c_.svg"), "svg b/c?");
}

TEST(ChartFiles, AProgramWithoutChartsSaysSoAndGoesOn) {
    testing::MemoryFiles files;
    Strings written;
    const SavedCharts none = SaveCharts(Titled({"a", "b"}), "out", nullptr, files, written);
    EXPECT_TRUE(none.all && none.warnings.empty() && written.empty());
    EXPECT_EQ(none.messages, Strings{"2 charts are not saved: this corvane was built without"});
    EXPECT_TRUE(SaveCharts({}, "out", nullptr, files, written).messages.empty());
    TitlePainter painter; // charts that all can be drawn, or none, are no failure either
    EXPECT_TRUE(SaveCharts(Titled({"far"}), "out", &painter, files, written).all);
    EXPECT_TRUE(SaveCharts(Titled({"a"}), "out", &painter, files, written).messages.empty());
    EXPECT_EQ(written, Strings{"plot-01-a.svg"});
}

} // namespace
} // namespace corvane
