#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace corvane {

/// Items side by side, each as wide as it wants, going on in the next line where the width ends: for rows of
/// buttons that must not be cut. Lines keep the reading direction.
class FlowLayout : public QLayout {
    Q_OBJECT

public:
    explicit FlowLayout(QWidget* parent = nullptr);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& place) override;

private:
    /// The height needed; with `move` the items take their places.
    int Arrange(const QRect& place, bool move) const;

    std::vector<std::unique_ptr<QLayoutItem>> items;
};

} // namespace corvane
