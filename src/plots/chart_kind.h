#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace corvane {

/// What a chart shows.
enum class ChartKind {
    Scatter,         ///< Y on X of the dataset.
    Ranks,           ///< Its ranks.
    Histogram,       ///< Of X, Y or their differences.
    Residual,        ///< Studentized residuals on fitted values.
    Deviation,       ///< Deviations on Y.
    Normal,          ///< Normal scores on residuals.
    Residue,         ///< Residuals on fitted values.
    DeviationModel,  ///< Deviations on X.
    Kleijnen,        ///< Differences on sums.
    BlandAltman,     ///< Differences on averages.
    WeighedDeviance, ///< Weighed deviations on X.
};

/// The machine names of all kinds, by which a command line and a window name a chart.
inline constexpr std::array<std::pair<ChartKind, std::string_view>, 11> ChartKinds = {{
    {ChartKind::Scatter, "scatter"},
    {ChartKind::Ranks, "ranks"},
    {ChartKind::Histogram, "histogram"},
    {ChartKind::Residual, "residual"},
    {ChartKind::Deviation, "deviation"},
    {ChartKind::Normal, "normal"},
    {ChartKind::Residue, "residue"},
    {ChartKind::DeviationModel, "deviation_model"},
    {ChartKind::Kleijnen, "kleijnen"},
    {ChartKind::BlandAltman, "bland_altman"},
    {ChartKind::WeighedDeviance, "weighed_deviance"},
}};

inline std::string_view NameOf(ChartKind kind) {
    return std::ranges::find(ChartKinds, kind, &std::pair<ChartKind, std::string_view>::first)->second;
}

inline std::optional<ChartKind> ChartKindOf(std::string_view name) {
    const auto found = std::ranges::find(ChartKinds, name, &std::pair<ChartKind, std::string_view>::second);
    return found == ChartKinds.end() ? std::nullopt : std::optional(found->first);
}

} // namespace corvane
