#include "app/json_report.h"
#include "core/format/numbers.h"
#include "core/option_changes.h"
#include "evaluation/calculate.h"
#include "fuzzing.h"
#include "plots/axis_scale.h"
#include "support/fakes.h"

#include <algorithm>
#include <cmath>

// The input: what to set apart from the ticks of all sections, then up to 40 rows of cells. `Bytes::Cell`
// says how a byte makes a cell. Of the first byte, bits 0 and 1 choose the regression method, 2 and 3 ignore
// an uncertainty, 4 and 5 tell whether rows have SDs and Exclude cells, 6 leaves the ticks as they are at a
// fresh start, 7 lets options follow: their count, then for each its place in the option table and a value.

namespace corvane {
namespace {

using fuzzing::Bytes;
using fuzzing::Require;

constexpr const char* optionTexts[] = {"",    "0",  "1",     "-1",   "0.95", "95",  "100", "3",
                                       "2.5", "50", "1E-30", "-200", "word", "999", "1d3", "1E+300"};

void SetOption(Bytes& bytes, Dataset& dataset, SessionState& session) {
    const OptionRow& row = bytes.OneOf(OptionTable());
    const std::string text = row.Form() == OptionForm::Text ? std::string(bytes.OneOf(optionTexts))
                                                            : std::to_string(bytes.Below(3));
    // The number of rows is that of the input, and more sub-samples only take longer.
    if (row.member == OptionRow::Member{&AnalysisOptions::N} ||
        row.member == OptionRow::Member{&AnalysisOptions::MSPE_BOOTSTRAP_SUBSAMPLE})
        return;
    if (const auto value = ReadOptionValue(row, text))
        TypeOption(dataset, session, row, *value);
}

void ReadInput(Bytes bytes, Dataset& dataset, SessionState& session) {
    const std::uint8_t first = bytes.Next();
    const bool deviations = first & 0x10, exclusions = first & 0x20;
    if (!(first & 0x40))
        TickAllGates(dataset, session);
    const auto tick = [&](OptionRow::Member member, OptionValue value) {
        ChangeOption(dataset, session, OptionOf(member), value);
    };
    if (first % 4 < 3) {
        const OptionRow::Member methods[] = {&AnalysisOptions::LSM, &AnalysisOptions::WLSM,
                                             &AnalysisOptions::ROBUSTR};
        tick(methods[first % 4], true);
    } else {
        tick(&AnalysisOptions::LSM, false);
    }
    tick(&AnalysisOptions::UNCERTAINTY_X, static_cast<std::int16_t>(first >> 2 & 1));
    tick(&AnalysisOptions::UNCERTAINTY_Y, static_cast<std::int16_t>(first >> 3 & 1));
    if (first & 0x80)
        for (std::size_t count = bytes.Below(16); count > 0; --count)
            SetOption(bytes, dataset, session);

    tick(&AnalysisOptions::MSPE_BOOTSTRAP_SUBSAMPLE, std::string("8"));

    constexpr std::int32_t mostRows = 40;
    dataset.cells.SetRowCount(mostRows);
    std::int32_t rows = 0;
    while (rows < mostRows && !bytes.AtEnd()) {
        ++rows;
        for (const int column : {ColumnX, ColumnY})
            dataset.cells.Set(column, rows, bytes.Cell());
        if (deviations)
            for (const int column : {ColumnSDX, ColumnSDY})
                dataset.cells.Set(column, rows, bytes.Cell());
        if (exclusions)
            dataset.cells.Set(ColumnExclude, rows, bytes.Cell());
    }
    tick(&AnalysisOptions::N, std::to_string(std::max(rows, 2)));
}

void RequireReason(const RunResult& result, const Dataset& dataset,
                   const std::vector<std::string>& messages) {
    const AnalysisOptions& options = dataset.options;
    switch (result.end) {
    case RunEnd::Cancelled:
        Require(false, "a run that nobody stops ends by itself");
        break;
    case RunEnd::Finished:
        return;
    case RunEnd::TooFewRows:
        return Require(result.rows < 3, "too few rows are fewer than three");
    case RunEnd::IdenticalValues:
        return Require(!messages.empty() && !SelectRows(dataset.cells).XYDiffer,
                       "identical values are identical, and the run says so");
    case RunEnd::NoMethod:
        return Require(!messages.empty() && !options.LSM && !options.WLSM && !options.ROBUSTR,
                       "a missing method is missing, and the run says so");
    }
}

void RequireChart(const ChartModel& chart) {
    for (const ChartSeries& series : chart.series) {
        Require(series.y != nullptr, "a series has values", chart.title);
        Require(!series.x || series.x->size() == series.y->size(), "every x has its y", chart.title);
        Require(!series.rows || series.rows->size() == series.y->size(), "every point has its row",
                chart.title);
        for (const auto& [place, text] : series.labels)
            Require(place < series.y->size(), "a label is at a point", chart.title);
    }
    const ChartScales scales = ScalesOf(chart);
    for (const AxisScale& scale : {scales.x, scales.y}) {
        const auto outside = [](double tick) { return !std::isfinite(tick); };
        Require(std::isfinite(scale.minimum) && std::isfinite(scale.maximum) && scale.minimum < scale.maximum,
                "an axis has an extent", chart.title);
        Require(std::ranges::none_of(scale.major, outside) && std::ranges::none_of(scale.minor, outside),
                "a tick has a place", chart.title);
        constexpr std::size_t mostTicks = 1000;
        Require(scale.major.size() + scale.minor.size() <= mostTicks, "ticks can be told apart", chart.title);
        for (const double tick : scale.major)
            Require(!TickLabel(scale, tick).empty(), "a tick has a label", chart.title);
    }
}

void RequireReport(const Dataset& dataset, const SessionState& session, const RunResult& result) {
    fuzzing::RequireFinite(result.report);
    for (const RunWindow& window : result.windows)
        fuzzing::RequireFinite(window.content);
    for (const ChartModel& chart : result.plots)
        RequireChart(chart);
    for (const std::string& warning : result.warnings)
        Require(!warning.empty(), "a warning has words");
    for (const double limit :
         {session.DeviationLower, session.DeviationUpper, session.ResidueLower, session.ResidueUpper,
          session.RStdtResLower, session.RStdtResUpper, session.DeviationCIProb, session.MeanY})
        Require(std::isfinite(limit), "what outlives a run is finite");
    Require(!JsonReport({dataset, session, result, "file", {}}).empty(),
            "every number has a name of its own"); // throws otherwise
}

RunResult Run(const Dataset& dataset, const SessionState& session) {
    testing::RecordingProgress progress;
    return Calculate({dataset, session, testing::FixedClock().Now(), testing::FixedRandom().Seed(),
                      "/residues/Residue0000.TXT"},
                     progress);
}

void RequireSameReport(const Dataset& dataset, const SessionState& session, const RunResult& result) {
    const RunResult same = Run(dataset, session);
    Require(same.report.Text() == result.report.Text(), "the same run has the same report");
}

} // namespace
} // namespace corvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvane;
    Dataset dataset;
    SessionState session;
    ReadInput({data, size}, dataset, session);
    const Dataset before = dataset;
    const SessionState sessionBefore = session;

    const RunResult result = Run(dataset, session);
    RequireReason(result, dataset, result.messages);
    ApplyChanges(result.changes, dataset, session);
    if (result.end == RunEnd::Finished)
        RequireReport(dataset, session, result);
    // A run takes most of an input's time, so that only some are tried twice.
    if (size % 4 == 0)
        RequireSameReport(before, sessionBefore, result);
    return 0;
}
