#pragma once

#include "core/dataset.h"
#include "core/option_table.h"
#include "core/session_state.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// A stretch of the grid, rows and columns from 1, both ends included.
struct GridRange {
    std::int32_t firstRow = 1, lastRow = 1;
    int firstColumn = ColumnX, lastColumn = ColumnX;

    bool operator==(const GridRange&) const = default;
};

/// What became different in a document.
struct DocumentChange {
    bool cells = false;    ///< Some cell, within `place` where that is known.
    bool rowCount = false; ///< The number of rows.
    bool notes = false;
    bool limits = false; ///< What one run hands to the next.
    bool name = false;   ///< The path that the document is saved under.
    bool modified = false, history = false;
    bool restored = false;                   ///< An undo or a redo did it.
    std::vector<const OptionRow*> options{}; ///< Those whose value is another.
    std::optional<GridRange> place{};        ///< Where to look after an undo.

    bool Data() const { return cells || rowCount; }
};

/// Is told of every change, after it is done.
class DocumentObserver {
public:
    virtual ~DocumentObserver() = default;

    virtual void DocumentChanged(const DocumentChange& change) = 0;
};

/// What a change is called, and which changes make one step of undo.
struct ChangeName {
    std::string words;                ///< As "Type 12.5 in Y (Obs), row 7".
    std::optional<GridRange> place{}; ///< Where it happens.
    /// Changes of one key that follow each other within a second are one step; empty: each is its own.
    std::string joins{};
    bool replaces = false; ///< The cells are no longer those of before: they were cleared or exchanged.
};

/// The one dataset that a user works on: cells, options and notes, its path, what was changed since it was
/// saved, and the way back. Everything that changes it goes through Change, so that nothing is without a way
/// back and everybody who shows the document knows.
class Document {
public:
    using Moment = std::chrono::steady_clock::time_point;

    const Dataset& Data() const { return state.dataset; }
    const SessionState& Session() const { return state.session; }
    /// The path of the dataset's file; empty: it has none yet.
    const std::string& Path() const { return state.session.CurrentDatasetName; }
    /// "Untitled" without a file.
    std::string Title() const { return DatasetTitle(state.session); }

    /// Whether something that a file would hold differs from what was last saved or loaded.
    bool Modified() const { return modified; }
    /// Counts up at every change of cells or rows, undo included.
    std::uint64_t DataRevision() const { return dataRevision; }
    /// Counts up whenever another dataset takes the place of this one, or its columns change places.
    std::uint64_t Identity() const { return identity; }

    using Work = std::function<void(Dataset&, SessionState&)>;

    /// Does the work as one step of undo, or within the last one where the names join. Work that changes
    /// nothing leaves no step.
    void Change(const ChangeName& name, const Work& work, Moment now = std::chrono::steady_clock::now());

    /// Does the work without a step and without the modified mark: what switches and settings do.
    void ChangeSilently(const Work& work);

    /// Sets one option as its control does, as one step.
    void SetOption(const OptionRow& row, const OptionValue& value,
                   Moment now = std::chrono::steady_clock::now());

    /// The document as a file was loaded into it: a new history, nothing modified. `complete`: the file was
    /// read to its end; otherwise the next Save asks for a name.
    void Load(const Work& work, bool complete = true);

    /// It was saved under this path.
    void MarkSaved(const std::string& path);

    /// Whether Save must ask for a name: there is none, or the file was not read to its end.
    bool NeedsName() const { return Path().empty() || !wholeFile; }

    bool CanUndo() const { return !undo.empty(); }
    bool CanRedo() const { return !redo.empty(); }
    /// What the next undo or redo takes back or does again; empty: nothing.
    std::string_view UndoName() const { return undo.empty() ? std::string_view() : undo.back().name.words; }
    std::string_view RedoName() const { return redo.empty() ? std::string_view() : redo.back().name.words; }
    void Undo();
    void Redo();
    /// The next change begins a step of its own.
    void EndStep() { lastJoin.clear(); }

    /// Observers are told in the order in which they came; one must go before it ends.
    void Add(DocumentObserver& observer) { observers.push_back(&observer); }
    void Remove(DocumentObserver& observer) { std::erase(observers, &observer); }

private:
    static constexpr std::size_t longestHistory = 1000;

    struct State {
        Dataset dataset;
        SessionState session;
    };
    /// The state on the other side of a step.
    struct Step {
        ChangeName name;
        State state;
    };

    void Restore(Step step, std::deque<Step>& others);
    DocumentChange Difference(const State& before) const;
    void Tell(DocumentChange change);

    State state, saved;
    std::deque<Step> undo, redo;
    std::vector<DocumentObserver*> observers;
    std::string lastJoin;
    Moment lastChange{};
    bool modified = false, wholeFile = true;
    std::uint64_t dataRevision = 0, identity = 0;
};

} // namespace corvane
