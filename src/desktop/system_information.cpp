#include "desktop/system_information.h"

#include "core/version.h"

#include <QApplication>
#include <QFontInfo>
#include <QLocale>
#include <QScreen>
#include <QStyle>
#include <QSysInfo>

namespace corvane {

QString SystemInformation() {
    QStringList lines;
    const auto add = [&lines](const char* name, const QString& value) {
        lines.append(QStringLiteral("%1: %2").arg(QString::fromLatin1(name), value));
    };
    add("Corvane", QString::fromStdString(VersionText()));
    add("Qt", QStringLiteral("%1, built with %2").arg(QString::fromLatin1(qVersion()), QT_VERSION_STR));
    add("System", QSysInfo::prettyProductName()); // from os-release
    add("Kernel", QSysInfo::kernelType() + " " + QSysInfo::kernelVersion());
    add("Processor", QSysInfo::currentCpuArchitecture());
    add("Windows", QGuiApplication::platformName());
    add("Desktop", qEnvironmentVariable("XDG_CURRENT_DESKTOP", QStringLiteral("unknown")));
    for (const QScreen* screen : QGuiApplication::screens())
        add("Screen", QStringLiteral("%1 × %2, scale %3, %4 dpi")
                          .arg(screen->size().width())
                          .arg(screen->size().height())
                          .arg(screen->devicePixelRatio())
                          .arg(screen->logicalDotsPerInch()));
    const QFontInfo font(QApplication::font());
    add("Font", QStringLiteral("%1 %2 pt").arg(font.family()).arg(font.pointSizeF()));
    add("Language", QLocale::system().name());
    return lines.join('\n');
}

} // namespace corvane
