#pragma once

#include <QIcon>
#include <QString>

namespace corvane {

/// The icon of a name in src/desktop/icons, in the text colour of buttons as the theme has it when it is
/// painted, disabled in the quiet one. An unknown name is a null icon.
QIcon ThemedIcon(const QString& name);

/// The same in one colour of the caller's, for signs that have a meaning: a warning, an error.
QIcon ColouredIcon(const QString& name, const QColor& colour);

} // namespace corvane
