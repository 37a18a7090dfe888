#include "desktop/theme.h"

#include "desktop/control_style.h"
#include "desktop/desktop_scheme.h"
#include "desktop/focus_ring.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QToolTip>

namespace corvane {
namespace {

/// A widget keeps some colours that it has worked out once, such as those of links in a text.
void Recolour(QWidget& widget) {
    if (!widget.styleSheet().isEmpty())
        widget.setStyleSheet(widget.styleSheet());
    auto* label = qobject_cast<QLabel*>(&widget);
    if (!label || label->text().isEmpty() || !Qt::mightBeRichText(label->text()))
        return;
    const QString text = label->text();
    label->setText({});
    label->setText(text);
}

} // namespace

Theme::Theme(QDBusConnection bus, QObject* parent)
    : QObject(parent), connection(std::move(bus)), ring(std::make_unique<FocusRing>()) {
    QApplication::setStyle(new ControlStyle);
    qApp->installEventFilter(this);
    Choose(ThemeChoice::Desktop);
}

Theme::~Theme() = default;

const ThemeColours& Theme::Colours() const {
    const bool dark =
        choice == ThemeChoice::Dark || (choice == ThemeChoice::Desktop && scheme && scheme->PrefersDark());
    return dark ? DarkColours() : LightColours();
}

void Theme::Choose(ThemeChoice newChoice) {
    choice = newChoice;
    if (choice == ThemeChoice::Desktop && !scheme) {
        scheme = std::make_unique<DesktopScheme>(connection);
        connect(scheme.get(), &DesktopScheme::Changed, this, [this] {
            if (choice == ThemeChoice::Desktop)
                Apply();
        });
    }
    Apply();
}

void Theme::Apply() {
    const QPalette palette = PaletteOf(Colours());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette); // they do not follow the application's
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
    // The palette comes to the widgets by the event loop, and this event at its head.
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        QMetaObject::invokeMethod(this, &Theme::Finish, Qt::QueuedConnection);
    return false;
}

void Theme::Finish() {
    for (QWidget* widget : QApplication::allWidgets())
        Recolour(*widget);
    emit Changed();
}

void MakeAccent(QAbstractButton& button) {
    button.setProperty(accentProperty, true);
    button.update();
}

} // namespace corvane
