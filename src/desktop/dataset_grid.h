#pragma once

#include "app/cell_edit.h"
#include "app/grid_selection.h"
#include "desktop/dataset_grid_model.h"

#include <QTableView>

namespace corvane {

class CellEditor;

/// The grid of the dataset: shows, selects and edits its cells. What is done to many cells at once is in
/// DatasetGridActions.
class DatasetGrid : public QTableView {
    Q_OBJECT

public:
    explicit DatasetGrid(Document& editedDocument, QWidget* parent = nullptr);

    DatasetGridModel& Cells() { return *cells; }
    GridPlace CurrentPlace() const;
    /// What is selected, or else the current cell; empty for a table without rows.
    std::vector<GridRange> Selection() const;
    void SetCurrent(GridPlace place);
    /// Stores what the open editor holds. Everything that reads or replaces the document calls it before.
    void FinishEditing();
    /// Writes "Y" into Exclude for the selected rows, or empties it where all of them are excluded.
    void ToggleExcluded();
    void Say(const QString& text) { emit statusText(text); }

signals:
    /// A sentence for the status line about what was just done.
    void statusText(const QString& text);
    void filesDropped(const QStringList& paths);
    /// The menu of a column's header is wanted.
    void columnMenuRequested(int column, const QPoint& globalPosition);

public slots:
    void GoToRow(int row);
    /// Makes a place visible and its first cell the current one, as after an undo.
    void ShowPlace(const corvane::GridRange& place);
    /// To the next cell that counts as 0, or the one before, round the table's end; says why it does.
    void GoToUnreadable(bool forward);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void keyboardSearch(const QString&) override {} // it would look through every row

private:
    void SetUpHeaders();
    void FitToFont();
    /// Opens the editor on the current cell: with a typed text, which replaces the value, or on the value.
    void Edit(const QString& typed = {});
    void Step(int rowStep, int columnStep);
    void TellDropped();
    void ShowDropTarget(bool shown);

    Document& document;
    CellEdit edit;
    DatasetGridModel* cells;
    CellEditor* editor;
    int columnWidthByFont = 0;
    bool dropTarget = false;
};

} // namespace corvane
