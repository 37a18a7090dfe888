#pragma once

#include "app/document.h"
#include "core/cell_reading.h"

#include <QAbstractTableModel>
#include <QTimer>
#include <vector>

namespace corvane {

/// The cells of a document for the grid: row r of the model is row r + 1 of the table, column c column c + 1.
/// It shows each cell in its picture, edits the unformatted value, and follows the document.
class DatasetGridModel : public QAbstractTableModel, private DocumentObserver {
    Q_OBJECT

public:
    enum Role { ReadingRole = Qt::UserRole, ExcludedRole }; ///< CellReading as int; of its row, bool.

    explicit DatasetGridModel(Document& shownDocument, QObject* parent = nullptr);
    ~DatasetGridModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    static GridPlace PlaceOf(const QModelIndex& index) { return {index.row() + 1, index.column() + 1}; }
    QModelIndex IndexOf(GridPlace place) const { return index(place.row - 1, place.column - 1); }

    /// Why a cell is marked, as "row 12: Y (Obs) is empty and counts as 0"; empty for one that is not.
    QString Reason(GridPlace place) const;

    /// The rows by what a run does with them; while `CountsComplete` is false, of those counted so far.
    const RowCounts& Counts() const { return counter.Counts(); }
    bool CountsComplete() const { return counter.Complete(); }
    std::optional<GridPlace> NextUnreadable(GridPlace from, bool forward) {
        return counter.NextUnreadable(from, forward);
    }

signals:
    void countsChanged(); ///< They are complete, and the table or they were others before.
    void restored(const corvane::GridRange& place); ///< An undo or a redo changed cells there.

private:
    void DocumentChanged(const DocumentChange& change) override;
    void TakeRowCount();
    void TellOfCells(const GridRange& range);
    void CountOn();

    Document& document;
    int shownRows = 0;
    std::uint64_t shownIdentity = 0;
    RowCounter counter;
    QTimer counting;
};

} // namespace corvane
