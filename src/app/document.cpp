#include "app/document.h"

#include "core/option_changes.h"

#include <algorithm>
#include <utility>

namespace corvane {
namespace {

constexpr std::chrono::seconds joinPause{1};

/// Whether a file of the one would hold what a file of the other does.
bool SameContent(const Dataset& first, const Dataset& second) {
    if (!first.cells.SharesAllCellsWith(second.cells) || first.cells.RowCount() != second.cells.RowCount() ||
        first.notes != second.notes)
        return false;
    return std::ranges::all_of(OptionTable(), [&](const OptionRow& row) {
        return row.storage == Storage::NotInFile ||
               GetOption(first.options, row) == GetOption(second.options, row);
    });
}

} // namespace

DocumentChange Document::Difference(const State& before) const {
    const Dataset &now = state.dataset, &then = before.dataset;
    DocumentChange change;
    change.cells = !now.cells.SharesAllCellsWith(then.cells);
    change.rowCount = now.cells.RowCount() != then.cells.RowCount();
    change.notes = now.notes != then.notes;
    change.limits = static_cast<const RunMemory&>(state.session) != before.session;
    change.name = state.session.CurrentDatasetName != before.session.CurrentDatasetName;
    for (const OptionRow& row : OptionTable())
        if (GetOption(now.options, row) != GetOption(then.options, row))
            change.options.push_back(&row);
    return change;
}

void Document::Tell(DocumentChange change) {
    if (change.Data())
        ++dataRevision;
    const bool was = std::exchange(modified, !SameContent(state.dataset, saved.dataset));
    change.modified = was != modified;
    // An observer may go while it is told.
    for (DocumentObserver* observer : std::vector(observers))
        if (std::ranges::count(observers, observer) > 0)
            observer->DocumentChanged(change);
}

void Document::Change(const ChangeName& name, const Work& work, Moment now) {
    State before = state;
    work(state.dataset, state.session);
    DocumentChange change = Difference(before);
    const bool differs = change.cells || change.rowCount || change.notes || change.limits || change.name ||
                         !change.options.empty();
    if (!differs)
        return;
    change.place = name.place;
    const bool joins = !name.joins.empty() && name.joins == lastJoin && now - lastChange < joinPause &&
                       !undo.empty() && redo.empty();
    if (joins) {
        undo.back().name.words = name.words;
    } else {
        undo.push_back({name, std::move(before)});
        if (undo.size() > longestHistory)
            undo.pop_front();
    }
    redo.clear();
    lastJoin = name.joins;
    lastChange = now;
    identity += name.replaces ? 1U : 0U;
    change.history = true;
    Tell(std::move(change));
}

void Document::ChangeSilently(const Work& work) {
    const State before = state;
    work(state.dataset, state.session);
    DocumentChange change = Difference(before);
    if (!modified)
        saved = state;
    // What is saved takes the same options, so that they count neither as work nor for the way back.
    for (const OptionRow* row : change.options)
        PutOption(saved.dataset.options, *row, GetOption(state.dataset.options, *row));
    Tell(std::move(change));
}

void Document::SetOption(const OptionRow& row, const OptionValue& value, Moment now) {
    const bool text = row.Form() == OptionForm::Text;
    std::string words;
    if (const auto* tick = std::get_if<std::int16_t>(&value))
        words = (IsSet(*tick) ? "Tick " : "Untick ") + std::string(row.caption);
    else if (text)
        words = std::string(row.caption) + " " + OptionText(GetOption(state.dataset.options, row)) + " to " +
                OptionText(value);
    else
        words = "Choose " + std::string(row.caption);
    Change(
        {words,
         {},
         text ? "option " + std::string(row.key) : "",
         row.member == OptionRow::Member{&AnalysisOptions::SwapXY}},
        [&](Dataset& dataset, SessionState& session) { ChangeOption(dataset, session, row, value); }, now);
}

void Document::Load(const Work& work, bool complete) {
    const State before = state;
    work(state.dataset, state.session);
    wholeFile = complete;
    saved = state;
    undo.clear();
    redo.clear();
    lastJoin.clear();
    ++identity;
    DocumentChange change = Difference(before);
    change.history = true;
    Tell(std::move(change));
}

void Document::MarkSaved(const std::string& path) {
    const State before = state;
    state.session.CurrentDatasetName = path;
    // An undo does not give the file that was left its document back.
    for (std::deque<Step>* steps : {&undo, &redo})
        for (Step& step : *steps)
            if (step.state.session.CurrentDatasetName == before.session.CurrentDatasetName)
                step.state.session.CurrentDatasetName = path;
    wholeFile = true;
    saved = state;
    lastJoin.clear();
    Tell(Difference(before));
}

void Document::Restore(Step step, std::deque<Step>& others) {
    State before = std::exchange(state, std::move(step.state));
    // The path, and what runs left, are no one's to take back.
    state.session.rememberedFolder = before.session.rememberedFolder;
    DocumentChange change = Difference(before);
    change.place = step.name.place;
    change.history = change.restored = true;
    identity += step.name.replaces ? 1U : 0U;
    others.push_back({std::move(step.name), std::move(before)});
    lastJoin.clear();
    Tell(std::move(change));
}

void Document::Undo() {
    if (undo.empty())
        return;
    Step step = std::move(undo.back());
    undo.pop_back();
    Restore(std::move(step), redo);
}

void Document::Redo() {
    if (redo.empty())
        return;
    Step step = std::move(redo.back());
    redo.pop_back();
    Restore(std::move(step), undo);
}

} // namespace corvane
