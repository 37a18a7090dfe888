#include "desktop/forms.h"

#include "desktop/measures.h"
#include "desktop/theme_colours.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace corvane {
namespace {

constexpr double quietSize = 0.85, leastQuietPixels = 11, emptyStateSize = 1.3;

QColor ColourOf(TextRole role, const ThemeColours& colours) {
    switch (role) {
    case TextRole::Quiet:
    case TextRole::EmptyState:
        return colours.quiet;
    case TextRole::Warning:
        return colours.warning;
    case TextRole::Error:
        return colours.error;
    case TextRole::Body:
    case TextRole::GroupTitle:
        break;
    }
    return colours.text;
}

} // namespace

QFont FontOf(TextRole role, const QFont& around) {
    QFont font(around);
    const QFontInfo info(around);
    const double pointsPerPixel = info.pointSizeF() / info.pixelSize();
    font.setResolveMask(0); // only what is set here is its own
    switch (role) {
    case TextRole::Quiet:
    case TextRole::Warning:
    case TextRole::Error:
        font.setPointSizeF(std::max(quietSize * info.pointSizeF(), leastQuietPixels * pointsPerPixel));
        break;
    case TextRole::GroupTitle:
        font.setWeight(QFont::DemiBold);
        break;
    case TextRole::EmptyState:
        font.setPointSizeF(emptyStateSize * info.pointSizeF());
        break;
    case TextRole::Body:
        break;
    }
    return font;
}

RoleLabel::RoleLabel(TextRole labelRole, const QString& text, QWidget* parent)
    : QLabel(text, parent), role(labelRole), surroundings(parent) {
    setWordWrap(role != TextRole::GroupTitle);
    if (parent)
        parent->installEventFilter(this);
    Dress();
}

void RoleLabel::SetRole(TextRole newRole) {
    role = newRole;
    Dress();
}

void RoleLabel::Dress() {
    if (dressing)
        return;
    dressing = true; // what it sets is itself a change
    const ThemeColours& colours = ColoursOf(QApplication::palette());
    QPalette own; // with one colour of its own; the others go on coming from the surroundings
    own.setColor(QPalette::WindowText, ColourOf(role, colours));
    own.setColor(QPalette::Disabled, QPalette::WindowText, colours.quiet);
    setPalette(own);
    setFont(FontOf(role, parentWidget() ? parentWidget()->font() : QApplication::font()));
    dressing = false;
}

void RoleLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::ParentChange) {
        if (surroundings)
            surroundings->removeEventFilter(this);
        surroundings = parentWidget();
        if (surroundings)
            surroundings->installEventFilter(this);
    }
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange)
        Dress();
}

bool RoleLabel::eventFilter(QObject* watched, QEvent* event) {
    // A size of its own keeps a label from hearing of another one by itself.
    if (watched == surroundings && event->type() == QEvent::FontChange)
        Dress();
    return QLabel::eventFilter(watched, event);
}

Group::Group(const QString& title, QWidget* parent)
    : QWidget(parent), reasonLine(new RoleLabel(TextRole::Quiet)), contents(new QVBoxLayout) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Scaled(labelToField));
    auto* heading = new RoleLabel(TextRole::GroupTitle, title);
    layout->addWidget(heading);
    layout->addWidget(reasonLine);
    layout->addLayout(contents);
    layout->addStretch(1);
    contents->setSpacing(0); // tick rows are high enough to stand one on another
    reasonLine->setObjectName("reason");
    reasonLine->hide();
    connect(reasonLine, &QLabel::linkActivated, this, &Group::LinkActivated);
    setAccessibleName(title);
    setMaximumWidth(Scaled(widestColumn));
}

void Group::SetReason(const QString& reason) {
    reasonLine->setText(reason);
    reasonLine->setVisible(!reason.isEmpty());
}

QFormLayout* NewForm() {
    auto* form = new QFormLayout;
    form->setContentsMargins(0, Scaled(labelToField), 0, Scaled(labelToField));
    form->setHorizontalSpacing(Scaled(betweenControls));
    form->setVerticalSpacing(Scaled(betweenControls));
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setFormAlignment(Qt::AlignLeft | Qt::AlignTop);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    return form;
}

QLabel* AddField(QFormLayout& form, const QString& caption, QWidget& field) {
    auto* label = new QLabel(caption);
    label->setBuddy(&field);
    label->setMinimumHeight(field.sizeHint().height());
    form.addRow(label, &field);
    return label;
}

QWidget* Row(std::initializer_list<QWidget*> controls) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, Scaled(labelToField), 0, Scaled(labelToField));
    for (QWidget* control : controls)
        layout->addWidget(control);
    layout->addStretch(1);
    return row;
}

VerticalScroll::VerticalScroll(QWidget* contents, QWidget* parent)
    : QScrollArea(parent), ground(new QWidget) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus); // the controls in it scroll it into view
    auto* layout = new QVBoxLayout(ground);
    const int room = Scaled(labelToField);
    layout->setContentsMargins(room, room, room, room);
    layout->addWidget(contents);
    setWidget(ground);
    ground->installEventFilter(this);
}

QSize VerticalScroll::minimumSizeHint() const {
    const int bar = verticalScrollBar()->sizeHint().width();
    return {ground->minimumSizeHint().width() + bar, Scaled(4 * controlHeight)};
}

bool VerticalScroll::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ground && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace corvane
