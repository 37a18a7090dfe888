#include "desktop/dataset_grid_model.h"

#include "core/evaluation_arrays.h"
#include "core/format/numbers.h"
#include "core/grid_operations.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <algorithm>

namespace corvane {
namespace {

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

DatasetGridModel::DatasetGridModel(Document& shownDocument, QObject* parent)
    : QAbstractTableModel(parent), document(shownDocument), shownRows(document.Data().cells.RowCount()),
      shownIdentity(document.Identity()) {
    document.Add(*this);
    counting.setInterval(0);
    connect(&counting, &QTimer::timeout, this, &DatasetGridModel::CountOn);
    counter.Follow(document.Data().cells);
    counting.start();
}

DatasetGridModel::~DatasetGridModel() {
    document.Remove(*this);
}

int DatasetGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows;
}

int DatasetGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : LastColumn;
}

QString DatasetGridModel::Reason(GridPlace place) const {
    const Dataset& dataset = document.Data();
    const QString caption = Text(GridCaption(dataset.options, place.column));
    const CellView cell = dataset.cells.At(place.column, place.row);
    switch (ReadingOf(dataset.cells, place.row, place.column)) {
    case CellReading::EmptyAsZero:
        return tr("row %1: %2 is empty and counts as 0").arg(place.row).arg(caption);
    case CellReading::TextAsZero: {
        const QString text = Text(CellText(cell));
        if (text.trimmed().isEmpty())
            return tr("row %1: %2 holds only blanks and counts as 0").arg(place.row).arg(caption);
        return tr("row %1: \"%3\" in %2 is not a number and counts as 0").arg(place.row).arg(caption, text);
    }
    case CellReading::LeavesTheRowOut:
        return tr("row %1: %2 is empty, so the row is not used").arg(place.row).arg(caption);
    case CellReading::AsItIs:
        break;
    }
    return {};
}

QVariant DatasetGridModel::data(const QModelIndex& index, int role) const {
    const GridPlace at = PlaceOf(index);
    const Dataset& dataset = document.Data();
    if (!index.isValid() || at.row > dataset.cells.RowCount())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return Text(MatrixTOGrid(dataset, at.row, at.column));
    case Qt::EditRole:
        return Text(CellText(dataset.cells.At(at.column, at.row)));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter |
                                   (at.column == ColumnExclude ? Qt::AlignHCenter : Qt::AlignRight));
    case Qt::ToolTipRole: {
        const QString reason = Reason(at);
        return reason.isEmpty() ? QVariant() : reason;
    }
    case Qt::AccessibleTextRole: {
        QStringList parts{Text(MatrixTOGrid(dataset, at.row, at.column))};
        if (RowIsExcluded(dataset.cells, at.row))
            parts << tr("excluded");
        parts << Reason(at);
        parts.removeAll({});
        return parts.join(", ");
    }
    case ReadingRole:
        return static_cast<int>(ReadingOf(dataset.cells, at.row, at.column));
    case ExcludedRole:
        return RowIsExcluded(dataset.cells, at.row);
    default:
        return {};
    }
}

QVariant DatasetGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal) {
        if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole)
            return Text(GridCaption(document.Data().options, section + 1));
        return {};
    }
    const std::int32_t row = section + 1;
    const bool excluded =
        row <= document.Data().cells.RowCount() && RowIsExcluded(document.Data().cells, row);
    switch (role) {
    case Qt::DisplayRole:
        return Text(NumberText(static_cast<double>(row))); // a blank before it would be struck through, too
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::AccessibleTextRole:
        return excluded ? tr("row %1, excluded").arg(row) : tr("row %1").arg(row);
    case Qt::FontRole: {
        if (!excluded)
            return {};
        QFont font;
        font.setStrikeOut(true);
        return font;
    }
    case Qt::ForegroundRole:
        return excluded ? QVariant(QApplication::palette().brush(QPalette::Disabled, QPalette::Text))
                        : QVariant();
    default:
        return {};
    }
}

Qt::ItemFlags DatasetGridModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

void DatasetGridModel::TakeRowCount() {
    const int rows = document.Data().cells.RowCount();
    if (rows > shownRows) {
        beginInsertRows({}, shownRows, rows - 1);
        shownRows = rows;
        endInsertRows();
    } else if (rows < shownRows) {
        beginRemoveRows({}, rows, shownRows - 1);
        shownRows = rows;
        endRemoveRows();
    }
}

void DatasetGridModel::TellOfCells(const GridRange& range) {
    const int last = std::min(range.lastRow, shownRows);
    if (range.firstRow > last)
        return;
    // What a cell is taken for depends on its whole row.
    emit dataChanged(index(range.firstRow - 1, 0), index(last - 1, LastColumn - 1));
    emit headerDataChanged(Qt::Vertical, range.firstRow - 1, last - 1);
}

void DatasetGridModel::DocumentChanged(const DocumentChange& change) {
    const auto changed = [&](OptionRow::Member member) {
        return std::ranges::count(change.options, &OptionOf(member)) > 0;
    };
    const GridRange everything{1, std::max(shownRows, 1), ColumnX, LastColumn};
    if (changed(&AnalysisOptions::SwapXY))
        emit headerDataChanged(Qt::Horizontal, 0, LastColumn - 1);
    if (shownIdentity != document.Identity()) {
        beginResetModel();
        shownRows = document.Data().cells.RowCount();
        shownIdentity = document.Identity();
        endResetModel();
    } else {
        TakeRowCount();
        if (change.cells)
            TellOfCells(change.place.value_or(everything));
        else if (changed(&AnalysisOptions::GRID_FORMAT_XY) || changed(&AnalysisOptions::GRID_FORMAT_SD))
            TellOfCells(everything);
    }
    if (!change.Data())
        return;
    counter.Follow(document.Data().cells);
    CountOn();
    if (change.restored && change.place)
        emit restored(*change.place);
}

void DatasetGridModel::CountOn() {
    constexpr std::int32_t slice = 1 << 14; // a few milliseconds
    if (counter.Count(slice)) {
        counting.stop();
        emit countsChanged();
    } else {
        counting.start();
    }
}

} // namespace corvane
