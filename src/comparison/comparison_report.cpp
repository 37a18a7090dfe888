#include "comparison/comparison_report.h"

#include "report/transition.h"

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

constexpr const char* referenceBeginnings[] = {"Bibby",  "",      "Cochran", "Dent",    "Lin,",
                                               "Loague", "Neter", "Harlow",  "Wallach", "Zacharias"};

/// Stands at the empty place above.
constexpr const char* burnhamAnderson =
    "Burnham, K. P. and D. R. Anderson. 2002. Model Selection and Multimodel Inference: A Practical "
    "Information-Theoretic Approach (2nd ed.). Springer-Verlag, New York.";

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
    Line(header, line);
    Line(header, std::string(CharacterCount(line), '.'));
    header.Blank();

    ReportSection& legend = report.BeginSection({"legend", "Model Legend"});
    legend.Blank();
    for (const ComparedModel& model : data.models)
        if (!model.tag.empty())
            Line(legend, F(3, 0, model.tag), " = " + model.path);
}

void WriteComparisonReferences(Report& report) {
    ReportSection& section = report.BeginSection({"references", "REFERENCES"});
    for (const std::string_view beginning : referenceBeginnings)
        Line(section, beginning.empty() ? burnhamAnderson : FindReference(beginning));
}

/// The list's row of the name that a message shows: the one at the model's ordinal among the selected rows,
/// which is another file's where an unselected row stands before it.
const std::string& NameInMessage(const ComparisonList& list, std::size_t ordinal) {
    return list.Rows()[ordinal - 1].path;
}

} // namespace

ComparisonResult CompareModels(ComparisonList& list, bool showReferences,
                               const ComparisonServices& services) {
    ComparisonResult result;
    Dialogs& dialogs = services.dialogs;
    try {
        const ReportColumns columns = result.columns = ReadSettings(list.settings, result.warnings);
        if (std::ranges::count(list.Rows(), true, &ListedFile::selected) < 2) {
            dialogs.ShowMessage(MessageStyle::Critical,
                                "At least two files have to be selected for comparison", "");
            return result;
        }
        const ComparisonData data = LoadModels(list.Rows(), services.files, services.feedback);
        Report report;
        WriteHeader(report, data, services.clock.Now());
        const Adequacy adequacy = WriteAdequacy(report, data, columns);
        WritePairwiseTables(report, data, adequacy, columns, services.feedback);
        if (showReferences)
            WriteComparisonReferences(report);
        for (const ComparedModel& model : data.models)
            result.models.push_back({model.tag, model.path});
        result.rows = adequacy.ValidCount;
        result.report = std::move(report);
        result.finished = true;
    } catch (const ObservationsDiffer& failure) {
        dialogs.ShowMessage(MessageStyle::Critical,
                            "Observed values have to be identical!\r\n\r\nPlease check observed value #" +
                                std::to_string(failure.row) + " of file '" +
                                NameInMessage(list, failure.ordinal) + "'\r\n\r\nCalculation aborted!",
                            "Model Comparison");
        result.fault = failure.what();
    } catch (const IdenticalToObservations& failure) {
        const std::string& name = NameInMessage(list, failure.ordinal);
        dialogs.ShowMessage(MessageStyle::Critical,
                            "X and Y values are identical for '" + name + "'. Computation halted!", "");
        if (name != failure.path)
            result.fault = failure.what();
    } catch (const RunFailure& failure) {
        result.fault = failure.what();
    }
    services.feedback.HideProgress();
    return result;
}

} // namespace corvane
