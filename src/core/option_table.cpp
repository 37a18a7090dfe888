#include "core/option_table.h"

#include "core/format/numbers.h"
#include "core/format/text_lists.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace corvane {
namespace {

using namespace std::literals;
using Options = AnalysisOptions;
using Tick = std::int16_t;
using enum Storage;
using enum OptionGroup;
using enum OptionRole;

// clang-format off
constexpr OptionRow table[] = {
    {"LSM", &Options::LSM, true, "Option1(0)", "Least-square method", InFile, Method, Setting},
    {"WLSM", &Options::WLSM, false, "Option1(1)", "Weighted least-square method", InFile, Method, Setting},
    {"ROBUSTR", &Options::ROBUSTR, false, "Option1(2)", "Least-absolute deviation", InFile, Method, Setting},
    {"UNCERTAINTY_X", &Options::UNCERTAINTY_X, Tick{0}, "Check2", "Ignore uncertainties in X", InFile, None, Setting},
    {"UNCERTAINTY_Y", &Options::UNCERTAINTY_Y, Tick{0}, "Check3", "Ignore uncertainties in Y", InFile, None, Setting},
    {"AUTO_ROW", &Options::AUTO_ROW, Tick{1}, "Check9", "Auto increase rows", InFile, None, Setting},
    {"SINGLE_COLUMN", &Options::SINGLE_COLUMN, Tick{1}, "Check8", "Paste single column", InFile, None, Setting},
    {"SAME_SCALE_XY", &Options::SAME_SCALE_XY, Tick{1}, "Check22", "Same scale for X- and Y-axis", InFile, None, Setting},
    {"ADD_COMMENT", &Options::ADD_COMMENT, Tick{1}, "Check13", "Add comments to output", InFile, None, Setting},
    {"SHOW_EXCLUDED", &Options::SHOW_EXCLUDED, Tick{0}, "Check1", "Show excluded data points", InFile, None, Setting},
    {"PLOT_YX", &Options::PLOT_YX, Tick{1}, "Check46", "Plot Y = X line", WrittenOnly, None, Setting},
    {"SHOW_LITERATURE", &Options::SHOW_LITERATURE, Tick{0}, "Check28", "Show references", InFile, None, Gate},
    {"NoSound", &Options::NoSound, Tick{0}, "Check50", "No sound", WrittenOnly, None, Setting},
    {"GRID_FORMAT_XY", &Options::GRID_FORMAT_XY, "##.#000"sv, "Text1(13)", "X and Y format", InFile, None, Setting},
    {"GRID_FORMAT_SD", &Options::GRID_FORMAT_SD, "#.#0000"sv, "Text1(12)", "SD format", InFile, None, Setting},
    {"PARAMETER_TEST", &Options::PARAMETER_TEST, Tick{1}, "Check10", "Parameter tests", InFile, None, Gate},
    {"OLS_SLS", &Options::OLS_SLS, Tick{0}, "Check20", "OLS and SLS coefficients", InFile, None, Gate},
    {"DISTRIBUTION_ANALYSIS", &Options::DISTRIBUTION_ANALYSIS, Tick{1}, "Check29", "Distribution analysis", InFile, None, Gate},
    {"MOMENT_STATISTIC", &Options::MOMENT_STATISTIC, Tick{1}, "Check4", "Moment statistics", InFile, None, Gate},
    {"DIVERSE_MEASURES", &Options::DIVERSE_MEASURES, Tick{1}, "Check11", "Diverse measures", InFile, None, Gate},
    {"INDEX_ANALYSIS", &Options::INDEX_ANALYSIS, Tick{0}, "Check34", "Index analysis", InFile, None, Gate},
    {"CONCORDANCE_TEST", &Options::CONCORDANCE_TEST, Tick{1}, "Check17", "Concordance tests", InFile, None, Gate},
    {"GENERAL_CCC", &Options::GENERAL_CCC, Tick{0}, "Check30", "Generalized CCC", InFile, None, Gate},
    {"RANK_ANALYSIS", &Options::RANK_ANALYSIS, Tick{1}, "Check12", "Rank analysis", InFile, None, Gate},
    {"BALANCE_ANALYSIS", &Options::BALANCE_ANALYSIS, Tick{0}, "Check19", "Balance analysis", InFile, None, Gate},
    {"ORTHOGONAL_BALANCE", &Options::ORTHOGONAL_BALANCE, Tick{0}, "Check35", "Orthogonal balance", InFile, None, Gate},
    {"MSEP_ANALYSIS", &Options::MSEP_ANALYSIS, Tick{1}, "Check5", "MSEP analysis", InFile, None, Gate},
    {"KLEIJNEN_ANALYSIS", &Options::KLEIJNEN_ANALYSIS, Tick{0}, "Check18", "Kleijnen analysis", InFile, None, Gate},
    {"THRESHOLD_ANALYSIS", &Options::THRESHOLD_ANALYSIS, Tick{0}, "Check24", "Threshold table", InFile, None, Gate},
    {"DISTANCE_ANALYSIS", &Options::DISTANCE_ANALYSIS, Tick{0}, "Check27", "Distance analysis", InFile, None, Gate},
    {"WEIGHED_DEVIANCE", &Options::WEIGHED_DEVIANCE, Tick{0}, "Check26", "Weighed deviance", InFile, None, Gate},
    {"RESIDUAL_ANALYSIS", &Options::RESIDUAL_ANALYSIS, Tick{0}, "Check6", "Residual analysis", InFile, None, Gate},
    {"HISTOGRAM_PLOT", &Options::HISTOGRAM_PLOT, Tick{0}, "Check33", "Histogram plots", InFile, None, Gate},
    {"BLAND_ALTMAN_ANALYSIS", &Options::BLAND_ALTMAN_ANALYSIS, Tick{0}, "Check47", "Bland and Altman's", InFile, None, Gate},
    {"DEVIATION_ANALYSIS", &Options::DEVIATION_ANALYSIS, Tick{0}, "Check48", "Deviation analysis", InFile, None, Gate},
    {"ROBUST_STATISTICS", &Options::ROBUST_STATISTICS, Tick{0}, "Check56", "Robust statistics", InFile, None, Gate},
    {"TRESHOLD_RANK", &Options::TRESHOLD_RANK, ""sv, "Text1(10)", "Rank threshold", InFile, None, Setting},
    {"TRESHOLD_XY", &Options::TRESHOLD_XY, ""sv, "Text1(11)", "XY threshold", InFile, None, Setting},
    {"MSPE_BOOTSTRAP", &Options::MSPE_BOOTSTRAP, Tick{0}, "Check23", "Use Bootstrap for MSEP?", InFile, None, Gate},
    {"MSPE_BOOTSTRAP_SUBSAMPLE", &Options::MSPE_BOOTSTRAP_SUBSAMPLE, "200"sv, "Text1(7)", "Sub-samples", InFile, None, Setting},
    {"MSPE_BOOTSTRAP_SIZE", &Options::MSPE_BOOTSTRAP_SIZE, "20"sv, "Text1(6)", "Size (%)", InFile, None, Setting},
    {"RESIDUE_1", &Options::RESIDUE_1, true, "List1(0)", "X Value", InFile, None, Setting},
    {"RESIDUE_2", &Options::RESIDUE_2, true, "List1(1)", "Y Value", InFile, None, Setting},
    {"RESIDUE_3", &Options::RESIDUE_3, true, "List1(2)", "Deviation", InFile, None, Setting},
    {"RESIDUE_4", &Options::RESIDUE_4, true, "List1(3)", "Y Predicted", InFile, None, Setting},
    {"RESIDUE_5", &Options::RESIDUE_5, true, "List1(4)", "Residue", InFile, None, Setting},
    {"RESIDUE_6", &Options::RESIDUE_6, false, "List1(5)", "Expected Normal Residue", InFile, None, Setting},
    {"RESIDUE_7", &Options::RESIDUE_7, true, "List1(6)", "SE of Residue", InFile, None, Setting},
    {"RESIDUE_8", &Options::RESIDUE_8, false, "List1(7)", "Semi-Studentized Residue", InFile, None, Setting},
    {"RESIDUE_9", &Options::RESIDUE_9, true, "List1(8)", "Studentized Residue", InFile, None, Setting},
    {"RESIDUE_10", &Options::RESIDUE_10, true, "List1(9)", "Studentized Deleted Residue", InFile, None, Setting},
    {"RESIDUE_11", &Options::RESIDUE_11, true, "List1(10)", "Leverage", InFile, None, Setting},
    {"RESIDUE_12", &Options::RESIDUE_12, true, "List1(11)", "Cook's D", InFile, None, Setting},
    {"RESIDUE_13", &Options::RESIDUE_13, true, "List1(12)", "DFFITS", InFile, None, Setting},
    {"RESIDUE_14", &Options::RESIDUE_14, false, "List1(13)", "Deleted Residue or PRESS", InFile, None, Setting},
    {"DEVIATION_LOWER", &Options::DEVIATION_LOWER, ""sv, "Text1(9)", "Deviation Lower", InFile, None, Setting},
    {"DEVIATION_UPPER", &Options::DEVIATION_UPPER, ""sv, "Text1(1)", "Deviation Upper", InFile, None, Setting},
    {"RESIDUAL_LOWER", &Options::RESIDUAL_LOWER, ""sv, "Text1(2)", "Residual Lower", InFile, None, Setting},
    {"RESIDUAL_UPPER", &Options::RESIDUAL_UPPER, ""sv, "Text1(3)", "Residual Upper", InFile, None, Setting},
    {"RSTD_RESIDUE_LOWER", &Options::RSTD_RESIDUE_LOWER, ""sv, "Text1(4)", "RStd Res Lower", InFile, None, Setting},
    {"RSTD_RESIDUE_UPPER", &Options::RSTD_RESIDUE_UPPER, ""sv, "Text1(5)", "RStd Res Upper", InFile, None, Setting},
    {"DEVIATION_CI_PROB", &Options::DEVIATION_CI_PROB, "95"sv, "Text1(8)", "Deviation CI % Prob", InFile, None, Setting},
    {"RESIDUAL_REGRESSION_PLOT", &Options::RESIDUAL_REGRESSION_PLOT, Tick{0}, "Check25", "Residue regression && plots", InFile, None, Gate},
    {"SAVE_RESIDUE_TEXT", &Options::SAVE_RESIDUE_TEXT, Tick{0}, "Check21", "Save residues to a text file", WrittenOnly, None, Setting},
    {"RESIDUE_WINDOW", &Options::RESIDUE_WINDOW, Tick{1}, "Check32", "Separate window", InFile, None, Setting},
    {"SHOW_RESIDUAL_PLOT", &Options::SHOW_RESIDUAL_PLOT, Tick{0}, "Check14", "Residual plot", InFile, None, Gate},
    {"SHOW_DEVIATION_PLOT", &Options::SHOW_DEVIATION_PLOT, Tick{0}, "Check31", "Deviation plot", InFile, None, Gate},
    {"SHOW_NORMAL_PLOT", &Options::SHOW_NORMAL_PLOT, Tick{0}, "Check36", "Normal plot", InFile, None, Gate},
    {"HIST_PLOT_XY", &Options::HIST_PLOT_XY, Tick{1}, "Check37", "Plot Y and X", InFile, None, Setting},
    {"HIST_PLOT_TOGETHER", &Options::HIST_PLOT_TOGETHER, true, "Option3(0)", "Together", InFile, HistogramLayout, Setting},
    {"HIST_PLOT_SEPARATE", &Options::HIST_PLOT_SEPARATE, false, "Option3(1)", "Separate", InFile, HistogramLayout, Setting},
    {"HIST_PLOT_DIFFERENCE", &Options::HIST_PLOT_DIFFERENCE, Tick{0}, "Check42", "Plot X and X difference", InFile, None, Setting},
    {"HIST_PLOT_ABSDIFF", &Options::HIST_PLOT_ABSDIFF, Tick{0}, "Check43", "Abs(difference)", InFile, None, Setting},
    {"HIST_ACCUMULATED", &Options::HIST_ACCUMULATED, Tick{0}, "Check38", "Accumulated", InFile, None, Setting},
    {"HIST_PERCENTAGE", &Options::HIST_PERCENTAGE, Tick{0}, "Check39", "Percentage", InFile, None, Setting},
    {"HIST_BINS", &Options::HIST_BINS, "10"sv, "Text1(14)", "# of Bins", InFile, None, Setting},
    {"HIST_2D", &Options::HIST_2D, Tick{1}, "Check40", "2D Graph", InFile, None, Setting},
    {"HIST_3D", &Options::HIST_3D, Tick{0}, "Check41", "3D Graph", InFile, None, Setting},
    {"HIST_BAR", &Options::HIST_BAR, true, "Option2(0)", "Bar", InFile, HistogramStyle, Setting},
    {"HIST_LINE", &Options::HIST_LINE, false, "Option2(1)", "Line", InFile, HistogramStyle, Setting},
    {"HIST_AREA", &Options::HIST_AREA, false, "Option2(2)", "Area", InFile, HistogramStyle, Setting},
    {"HIST_STEP", &Options::HIST_STEP, false, "Option2(3)", "Step", InFile, HistogramStyle, Setting},
    {"HIST_Pie", &Options::HIST_Pie, false, "Option2(4)", "Pie", InFile, HistogramStyle, Setting},
    {"R_ShowAll", &Options::R_ShowAll, Tick{0}, "Check51", "Show all R output files?", InFile, None, Setting},
    {"R_AssignTemplate", &Options::R_AssignTemplate, Tick{1}, "Check52", "Assign template and overwrite current R file?", InFile, None, Setting},
    {"R_OpenGraphics", &Options::R_OpenGraphics, Tick{1}, "Check54", "Open graphics", InFile, None, Setting},
    {"R_OpenTXT", &Options::R_OpenTXT, Tick{1}, "Check55", "Open TXT files", InFile, None, Setting},
    {"R_ShowLog", &Options::R_ShowLog, Tick{1}, "Check53", "Show log", InFile, None, Setting},
    {"R_GraphBMP", &Options::R_GraphBMP, true, "RGraph(0)", "BMP", InFile, GraphFormat, Setting},
    {"R_GraphJPEG", &Options::R_GraphJPEG, false, "RGraph(1)", "JPEG", InFile, GraphFormat, Setting},
    {"R_GraphPNG", &Options::R_GraphPNG, false, "RGraph(2)", "PNG", InFile, GraphFormat, Setting},
    {"NOTES_BOLD", &Options::NOTES_BOLD, Tick{0}, "Check45", "Bold", InFile, None, Setting},
    {"NOTES_BLUE", &Options::NOTES_BLUE, Tick{0}, "Check44", "Invert colors", InFile, None, Setting},
    {"NOTES_SIZE", &Options::NOTES_SIZE, 9.75f, "Notes", "Notes font size", InFile, None, Setting},
    {"N", &Options::N, "19"sv, "Text1(0)", "Number of rows", InFile, None, Setting},
    {"SwapXY", &Options::SwapXY, Tick{0}, "Check7", "Swap X to Y", NotInFile, None, Setting},
    {"InvertXRanks", &Options::InvertXRanks, Tick{0}, "Check15", "Invert X ranks", NotInFile, None, Setting},
    {"InvertYRanks", &Options::InvertYRanks, Tick{0}, "Check16", "Invert Y ranks", NotInFile, None, Setting},
};
// clang-format on

} // namespace

std::span<const OptionRow> OptionTable() {
    return table;
}

AnalysisOptions::AnalysisOptions() {
    for (const OptionRow& row : table)
        PutOption(*this, row,
                  std::visit(
                      [](auto value) -> OptionValue {
                          if constexpr (std::is_same_v<decltype(value), std::string_view>)
                              return std::string(value);
                          else
                              return value;
                      },
                      row.byDefault));
}

const OptionRow* FindOption(std::string_view key) {
    const auto found =
        std::ranges::find_if(table, [&](const OptionRow& row) { return EqualInAnyCase(row.key, key); });
    return found == std::end(table) ? nullptr : &*found;
}

const OptionRow& OptionOf(OptionRow::Member member) {
    return *std::ranges::find(table, member, &OptionRow::member);
}

OptionValue GetOption(const AnalysisOptions& options, const OptionRow& row) {
    return std::visit([&](auto member) -> OptionValue { return options.*member; }, row.member);
}

void PutOption(AnalysisOptions& options, const OptionRow& row, const OptionValue& value) {
    std::visit(
        [&](auto member) {
            using Kind = std::remove_reference_t<decltype(options.*member)>;
            options.*member = std::get<Kind>(value);
        },
        row.member);
}

std::optional<OptionValue> ReadOptionValue(const OptionRow& row, std::string_view text) {
    switch (row.Form()) {
    case OptionForm::TickBox: {
        const auto number = ReadNumber(text);
        const auto state = number ? ToInteger16(*number) : std::nullopt;
        if (state && *state >= 0 && *state <= 2)
            return *state;
        return std::nullopt;
    }
    case OptionForm::TrueFalse:
        if (const auto flag = ToBoolean(text))
            return *flag;
        return std::nullopt;
    case OptionForm::Number: {
        const auto number = ReadNumber(text);
        if (number && std::abs(*number) <= static_cast<double>(std::numeric_limits<float>::max()))
            return static_cast<float>(*number);
        return std::nullopt;
    }
    case OptionForm::Text:
        break;
    }
    if (text.find_first_of("\r\n") != std::string_view::npos)
        return std::nullopt;
    return std::string(text);
}

std::string_view ValuesTaken(OptionForm form) {
    switch (form) {
    case OptionForm::TickBox:
        return "0, 1 or 2";
    case OptionForm::TrueFalse:
        return "True or False";
    case OptionForm::Number:
        return "a number";
    case OptionForm::Text:
        break;
    }
    return "a text of one line";
}

std::string OptionText(const OptionValue& value) {
    switch (static_cast<OptionForm>(value.index())) {
    case OptionForm::TickBox:
        return PlainNumber(static_cast<double>(std::get<std::int16_t>(value)));
    case OptionForm::TrueFalse:
        return std::get<bool>(value) ? "True" : "False";
    case OptionForm::Number:
        return PlainNumber(std::get<float>(value));
    case OptionForm::Text:
        break;
    }
    return std::get<std::string>(value);
}

} // namespace corvane
