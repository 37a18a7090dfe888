#include "core/option_changes.h"

#include "core/format/numbers.h"
#include "core/grid_operations.h"

namespace corvane {
namespace {

using Options = AnalysisOptions;

ChangeResult RowsChanged(Dataset& dataset) {
    switch (ApplyRowCount(dataset)) {
    case RowCountResult::TooFew:
        return ChangeResult::TooFewRows;
    case RowCountResult::TooLarge:
        return ChangeResult::TooManyRows;
    case RowCountResult::Applied:
        break;
    }
    return ChangeResult::Done;
}

/// The graph's dimension: the two boxes exclude each other, and there is no pie in three dimensions.
void DimensionChanged(Options& options, bool flat) {
    if (flat) {
        if (IsSet(options.HIST_2D))
            options.HIST_3D = 0;
    } else if (IsSet(options.HIST_3D)) {
        options.HIST_2D = 0;
        if (options.HIST_Pie) {
            options.HIST_Pie = false;
            options.HIST_BAR = true;
        }
    }
}

/// A probability and explicit deviation limits exclude each other.
void DeviationProbabilityChanged(Options& options, SessionState& session) {
    options.DEVIATION_LOWER = options.DEVIATION_UPPER = "0";
    session.DeviationLower = session.DeviationUpper = 0;
}

/// The limit that a box holds; an empty box is 0, not set.
struct LimitBox {
    std::string Options::*box;
    double SessionState::*limit;
    bool ofDeviation;
};

constexpr LimitBox limitBoxes[] = {
    {&Options::DEVIATION_LOWER, &SessionState::DeviationLower, true},
    {&Options::DEVIATION_UPPER, &SessionState::DeviationUpper, true},
    {&Options::RESIDUAL_LOWER, &SessionState::ResidueLower, false},
    {&Options::RESIDUAL_UPPER, &SessionState::ResidueUpper, false},
    {&Options::RSTD_RESIDUE_LOWER, &SessionState::RStdtResLower, false},
    {&Options::RSTD_RESIDUE_UPPER, &SessionState::RStdtResUpper, false},
};

void LimitChanged(Options& options, SessionState& session, const LimitBox& changed) {
    session.*changed.limit = LeadingNumber(options.*changed.box);
    if (changed.ofDeviation)
        options.DEVIATION_CI_PROB = "0";
}

} // namespace

ChangeResult ChangeOption(Dataset& dataset, SessionState& session, const OptionRow& row,
                          const OptionValue& value) {
    Options& options = dataset.options;
    const auto is = [&](OptionRow::Member member) { return row.member == member; };
    const OptionValue before = GetOption(options, row);
    if (before == value && !is(&Options::N))
        return ChangeResult::Done;

    if (row.group != OptionGroup::None && std::get<bool>(value))
        for (const OptionRow& other : OptionTable())
            if (other.group == row.group)
                PutOption(options, other, false);
    PutOption(options, row, value);

    if (is(&Options::N))
        return RowsChanged(dataset);
    if (is(&Options::SwapXY)) {
        if (IsSet(std::get<std::int16_t>(before)) != IsSet(options.SwapXY))
            SwapXAndY(dataset.cells);
    } else if (is(&Options::HIST_2D) || is(&Options::HIST_3D)) {
        DimensionChanged(options, is(&Options::HIST_2D));
    } else if (is(&Options::DEVIATION_CI_PROB)) {
        DeviationProbabilityChanged(options, session);
    } else {
        for (const LimitBox& limit : limitBoxes)
            if (is(limit.box))
                LimitChanged(options, session, limit);
    }
    return ChangeResult::Done;
}

ChangeResult TypeOption(Dataset& dataset, SessionState& session, const OptionRow& row,
                        const OptionValue& value) {
    const ChangeResult result = ChangeOption(dataset, session, row, value);
    if (row.member == OptionRow::Member{&Options::HIST_BINS} && LeadingNumber(dataset.options.HIST_BINS) < 3)
        dataset.options.HIST_BINS = "3";
    return result;
}

void TickAllGates(Dataset& dataset, SessionState& session) {
    for (const OptionRow& row : OptionTable())
        if (row.role == OptionRole::Gate)
            ChangeOption(dataset, session, row, std::int16_t{1});
}

} // namespace corvane
