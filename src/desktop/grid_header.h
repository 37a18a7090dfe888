#pragma once

#include <QHeaderView>

class QTableView;

namespace corvane {

/// The captions of the columns. It paints a section without asking which rows are selected, which the usual
/// header does for every row of the table.
class GridHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit GridHeader(QWidget* parent = nullptr);

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override;
};

/// Writes the caption of the row numbers, "#", into the corner between a table's headers.
class CornerCaption : public QObject {
    Q_OBJECT

public:
    explicit CornerCaption(QTableView& table);

protected:
    bool eventFilter(QObject* corner, QEvent* event) override;
};

} // namespace corvane
