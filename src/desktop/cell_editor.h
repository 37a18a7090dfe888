#pragma once

#include <QStyledItemDelegate>

class QLineEdit;

namespace corvane {

/// How the grid's cells look, and the one text box that edits them. Cells of excluded rows are dimmed, cells
/// that count as 0 have a dotted line below, the current cell has a ring.
class CellEditor : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// The text box is a hidden child of the viewport while no cell is edited.
    explicit CellEditor(QWidget* viewport, QObject* parent = nullptr);

    QLineEdit& Box() const { return *box; }

    /// Stores what the box holds and hides it.
    void Finish();

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

signals:
    void stored(const QString& text) const; ///< The box is left with this text.
    void dropped();                         ///< The box is left by Escape.
    /// A key that stored the text asks for a neighbouring cell.
    void leaving(int rowStep, int columnStep);

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void Leave(int rowStep, int columnStep);

    QLineEdit* box;
};

} // namespace corvane
