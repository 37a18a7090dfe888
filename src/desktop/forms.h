#pragma once

#include <QLabel>
#include <QPointer>
#include <QScrollArea>

class QFormLayout;
class QGridLayout;
class QVBoxLayout;

namespace corvane {

enum class TextRole {
    Body,
    Quiet,      ///< A note: 0.85 of the font, at least 11 px, in the quiet colour.
    GroupTitle, ///< Semibold.
    EmptyState, ///< What to do next where there is nothing yet: 1.3 of the font.
    Warning,    ///< With the colour alone; put its sign beside it.
    Error
};

/// The font of a role, made from that around it.
QFont FontOf(TextRole role, const QFont& around);

/// A label that keeps to its role when font or theme change.
class RoleLabel : public QLabel {
    Q_OBJECT

public:
    explicit RoleLabel(TextRole labelRole, const QString& text = {}, QWidget* parent = nullptr);

    void SetRole(TextRole newRole);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Dress();

    TextRole role;
    QPointer<QWidget> surroundings; ///< Whose font it follows.
    bool dressing = false;
};

/// A group: its title, and under it a column of controls. It is at most `widestColumn` wide.
class Group : public QWidget {
    Q_OBJECT

public:
    explicit Group(const QString& title, QWidget* parent = nullptr);

    /// For the controls.
    QVBoxLayout& Contents() { return *contents; }

    /// The quiet line under the title that says why the group is off; empty: none. A click on a link in it is
    /// told by `LinkActivated`.
    void SetReason(const QString& reason);

signals:
    void LinkActivated(const QString& link);

private:
    RoleLabel* reasonLine;
    QVBoxLayout* contents;
};

/// Labels before fields, aligned at the left, with the distances of all forms.
QFormLayout* NewForm();

/// Adds a field after its label, both in the middle of their row. The label is the field's buddy.
QLabel* AddField(QFormLayout& form, const QString& caption, QWidget& field);

/// A row of controls, at the left.
QWidget* Row(std::initializer_list<QWidget*> controls);

/// What lies in it scrolls up and down where it is too high, and is never cut at the side: the panel is at
/// least as wide as its contents need.
class VerticalScroll : public QScrollArea {
    Q_OBJECT

public:
    explicit VerticalScroll(QWidget* contents, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* ground; ///< Around the contents: it leaves room for the ring of the focus.
};

} // namespace corvane
