#include "comparison/comparison_report.h"

#include "comparison/adequacy_table.h"
#include "comparison/comparison_data.h"
#include "comparison/pairwise_tables.h"
#include "core/format/numbers.h"
#include "core/format/text_lists.h"
#include "core/version.h"
#include "evaluation/references.h"
#include "evaluation/report_header.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace corvane {
namespace {

const SectionDefinition LegendSection{
    .frame = {"legend", "Model Legend"},
    .meaning = "The models by their positions in the list, which the tables print.",
};

const SectionDefinition ComparisonReferences{
    .frame = {"references", "REFERENCES"},
    .meaning = "The literature that the comparison cites.",
};

const SectionDefinition* const sections[] = {
    &LegendSection,
    &AdequacySection,
    &CorrelationsSection,
    &PairwiseMsepSection,
    &DeviationCorrelationsSection,
    &DeltaAicSection,
    &ComparisonReferences,
};

std::int16_t Count(const char* name, const std::string& text) {
    const auto number = ReadNumber(text);
    const auto count = number ? ToInteger16(*number) : std::nullopt;
    if (!count)
        throw RunFailure(std::string(name) + " is " + QuotedForMessage(text) + ", not a whole number up to " +
                         std::to_string(INT16_MAX));
    return *count;
}

std::int32_t Decimals(const char* name, const std::string& text, std::int32_t instead) {
    const std::int16_t decimals = Count(name, text);
    return decimals < 0 ? instead : decimals;
}

/// A width in characters. One out of range is replaced, in the settings too.
std::int32_t Digits(const char* name, std::string& text, std::int32_t least, std::int32_t most,
                    std::int32_t instead, std::vector<std::string>& warnings) {
    const std::int16_t digits = Count(name, text);
    if (digits >= least && digits <= most)
        return digits;
    text = std::to_string(instead);
    warnings.push_back(std::string(name) + ": " + std::to_string(digits) + " is " +
                       (digits < least ? "below " + std::to_string(least) : "above " + std::to_string(most)) +
                       "; " + text + " is used");
    return instead;
}

ReportColumns ReadSettings(ComparisonSettings& settings, std::vector<std::string>& warnings) {
    constexpr std::int32_t unlimited = INT16_MAX;
    ReportColumns columns;
    columns.Statistics = Decimals("decimals of statistics", settings.DecimalsStatistics, 4);
    columns.Probability = Decimals("decimals of probabilities", settings.DecimalsProbability, 3);
    columns.Correlations = Decimals("decimals of correlations", settings.DecimalsCorrelations, 2);
    columns.Long = Digits("long digits", settings.DigitsLong, 10, 20, 12, warnings);
    columns.Short = Digits("short digits", settings.DigitsShort, 6, unlimited, 9, warnings);
    return columns;
}

void WriteHeader(Report& report, const ComparisonData& data, const ClockTime& time) {
    ReportSection& header = report.Current();
    const std::string line = "KOV v. " + VersionText() + std::string(37, ' ') + "COMPARISON OF MODELS" +
                             std::string(36, ' ') + TimeText(time);
    header.Text(line);
    header.Rule(CharacterCount(line), '.');
    header.Blank();

    ReportSection& legend = report.BeginSection(LegendSection.frame);
    legend.Blank();
    for (const ComparedModel& model : data.models)
        if (!model.tag.empty())
            legend.Text(AtRight(3, model.tag) + " = " + model.path);
}

/// The list's row of the name that a message shows: the one at the model's ordinal among the selected rows,
/// which is another file's where an unselected row is ahead of it.
const std::string& NameInMessage(const ComparisonSnapshot& snapshot, std::size_t ordinal) {
    return snapshot.files[ordinal - 1].path;
}

void Compare(const ComparisonSnapshot& snapshot, const FileStore& files, ComparisonSteps& steps,
             ComparisonResult& result) {
    const ComparisonData data = LoadModels(snapshot.files, files, steps);
    Report report;
    WriteHeader(report, data, snapshot.time);
    const Adequacy adequacy = WriteAdequacy(report, data, result.columns, steps);
    WritePairwiseTables(report, data, adequacy, result.columns, steps);
    if (snapshot.references)
        WriteReferences(report.BeginSection(ComparisonReferences.frame), &Paper::inComparison);
    for (const ComparedModel& model : data.models)
        result.models.push_back({model.tag, model.path});
    result.rows = adequacy.ValidCount;
    result.report = std::move(report);
    result.finished = true;
}

} // namespace

ComparisonResult CompareModels(const ComparisonSnapshot& snapshot, const FileStore& files, Progress& progress,
                               const std::stop_token& stop) {
    ComparisonResult result;
    result.settings = snapshot.settings;
    const auto tell = [&](const std::string& text, const char* title) {
        result.messages.push_back(text);
        progress.Tell(MessageStyle::Critical, text, title);
    };
    try {
        result.columns = ReadSettings(result.settings, result.warnings);
        const auto models =
            static_cast<std::size_t>(std::ranges::count(snapshot.files, true, &ListedFile::selected));
        if (models < 2) {
            tell("At least two files have to be selected for comparison", "");
            return result;
        }
        ComparisonSteps steps(progress, stop, models);
        Compare(snapshot, files, steps, result);
    } catch (const ObservationsDiffer& failure) {
        tell("Observed values have to be identical!\r\n\r\nPlease check observed value #" +
                 std::to_string(failure.row) + " of file '" + NameInMessage(snapshot, failure.ordinal) +
                 "'\r\n\r\nCalculation aborted!",
             "Model Comparison");
        result.fault = failure.what();
    } catch (const IdenticalToObservations& failure) {
        const std::string& name = NameInMessage(snapshot, failure.ordinal);
        tell("X and Y values are identical for '" + name + "'. Computation halted!", "");
        if (name != failure.path)
            result.fault = failure.what();
    } catch (const RunFailure& failure) {
        result.fault = failure.what();
    } catch (const stats::Cancelled&) {
        return {.cancelled = true, .settings = snapshot.settings};
    }
    return result;
}

std::span<const SectionDefinition* const> ComparisonSections() {
    return sections;
}

} // namespace corvane
