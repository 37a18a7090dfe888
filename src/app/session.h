#pragma once

#include "app/calculation.h"
#include "app/document.h"
#include "app/results_window.h"
#include "comparison/comparison_list.h"
#include "evaluation/calculate.h"
#include "files/dataset_reader.h"
#include "platform/clock.h"
#include "platform/feedback.h"
#include "platform/random.h"
#include "platform/settings.h"

#include <list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

/// The services of a session. They must outlive it.
struct SessionServices {
    FileStore& files;
    Folders& folders;
    Settings& settings;
    Dialogs& dialogs;
    Feedback& feedback;
    const Clock& clock;
    Random& random;
    Printer& printer;
    TextEditor& editor;
};

/// What the switches asked for; it stays for the session, so that a later line need not repeat it.
struct BatchState {
    bool BatchRun =
        false; ///< A dispatch is under way: files load without a dialog, results act by themselves.
    std::string BatchFile;
    std::string BatchPath;
    bool BatchPrint = false;
    bool BatchSave = false;
    bool BatchShow = false;
    std::string BatchCompareFile;
};

/// A calculation that runs, with the document as it was when it began.
struct PendingRun {
    std::unique_ptr<Calculation> calculation;
    RunStamp stamp;
};

/// What a finished calculation left in the session.
struct FinishedRun {
    RunEnd end = RunEnd::Finished;
    RunStamp stamp{};
    std::vector<ResultsWindow*> windows{}; ///< In the order in which they open, the report last.
    std::vector<std::string> warnings{};
    bool ranksLeftOut = false;   ///< Rows were edited meanwhile.
    bool changesLeftOut = false; ///< Another dataset took the place, or the columns were exchanged.
};

/// What the program holds from its start to its end, and the actions of its main window.
class Session {
public:
    explicit Session(SessionServices sessionServices) : services(sessionServices) {}

    /// The start: user settings, the working folder, and the switch line if there is one. True: the program
    /// shall end now.
    bool Start(std::string_view commandLine);

    /// Carries a switch line out, at the start or when a later process hands it over. Failures pass in
    /// silence but for `NotSaved`; a missing file skips its step. True: the program shall end now.
    bool Dispatch(std::string_view commandLine);

    /// Opens a dataset; on an old version the message of a refused file comes. A file that is refused or
    /// cannot be read leaves the document; one that breaks off leaves what was read, and the next save asks
    /// for a name.
    LoadOutcome Open(const std::string& path);

    /// Opens files dropped on the grid one after another, without their questions; the last one stays.
    void Drop(std::span<const std::string> paths);

    /// Empties the cells, the notes and the dataset's name, if the user says yes. The row count stays.
    void Clear();

    /// Evaluates the dataset into a results window of its own.
    void CalculateAction();

    /// The same in two halves, for a run in the background: what is begun runs on a thread of the caller's,
    /// and its result is brought back here.
    PendingRun BeginCalculation();
    FinishedRun FinishCalculation(PendingRun& pending, RunResult result);

    /// The caption of the main window: program, version, and the dataset's file name if it has one.
    std::string Caption() const;

    Document& Doc() { return document; }
    const Document& Doc() const { return document; }

    const std::list<ResultsWindow>& Windows() const { return windows; }
    /// The plots that runs asked for, oldest first.
    const std::vector<ChartModel>& Plots() const { return plots; }
    const Dataset& CurrentDataset() const { return document.Data(); }
    /// What switch lines could not save, each with its reason, oldest first. It is for standard error and
    /// never for a box.
    const std::vector<std::string>& NotSaved() const { return notSaved; }
    const BatchState& Batch() const { return batch; }
    /// The list of the comparison's window.
    ComparisonList& Comparison() { return comparison; }

private:
    void ActInBatch(ResultsWindow& window);
    ResultsServices ForResults() const;

    SessionServices services;
    Document document;
    BatchState batch;
    int runs = 0;
    std::list<ResultsWindow> windows;
    std::vector<ChartModel> plots;
    std::vector<std::string> notSaved;
    ComparisonList comparison;
};

} // namespace corvane
