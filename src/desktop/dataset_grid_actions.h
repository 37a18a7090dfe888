#pragma once

#include "app/grid_actions.h"

#include <QAction>
#include <QObject>
#include <thread>

namespace corvane {

class DatasetGrid;

/// What the menus, the buttons and the keys do to the selected cells of a grid and to its whole table. The
/// actions have the keys of the grid, which hold while the grid itself has the focus; they are its context
/// menu too.
class DatasetGridActions : public QObject {
    Q_OBJECT

public:
    DatasetGridActions(Document& editedDocument, DatasetGrid& editedGrid);

    /// The whole table in the system's own form; pasting by the system's own rules.
    QAction *copy, *paste;
    /// The selection as spreadsheets take it; pasting after a preview.
    QAction *copyAsTable, *pasteAsTable;
    QAction *cut, *clearCells, *fillDown, *exclude, *goToRow, *nextUnreadable, *lastUnreadable;
    QAction *removeInvalidRows, *swap, *sortAscending, *sortDescending;
    QAction* clear; ///< The dataset, after its question.

public slots:
    void ApplyNumberOfRows(const QString& text);

signals:
    /// What a paste did, for the bar; nothing was stored where `result.stored` is 0.
    void pasted(const QString& text, const corvane::PasteResult& result);
    void pasteAsTableRequested();
    void goToRowRequested();
    /// The document is empty now.
    void cleared();

private:
    QAction* Add(const QString& caption, const QKeySequence& keys, const std::function<void()>& work);
    void MakeClipboardActions();
    void MakeCellActions();
    void MakeTableActions();
    void OpenColumnMenu(int column, const QPoint& globalPosition);

    void Copy();
    void CopyTable();
    void Paste();
    /// Pastes in another thread, and again where the cells changed meanwhile.
    void PasteInBackground(std::shared_ptr<const std::string> text, GridPlace start);
    void FinishPaste(const PastedNumbers& result);
    QString PasteText(const PastedNumbers& pastedNumbers) const;
    void AskToClear();
    void ShowMessage(const QString& text);
    void SayRowCount(RowCountResult result);

    Document& document;
    DatasetGrid& grid;
    bool pasting = false;
    std::jthread worker; ///< Last, so that it ends first.
};

} // namespace corvane
