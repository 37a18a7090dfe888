#include "charts/qt_environment.h"

#include <QApplication>
#include <QFontMetrics>
#include <clocale>
#include <cstdio>
#include <unistd.h>
#include <vector>

namespace corvane {
namespace {

/// Words of Qt for its own developers, as of a runtime folder that painting does not need, are not for users.
void PassOnFailures(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

/// What the user tells the windows of Qt programs (a platform, a theme, a scale) is not for a painter without
/// a window: it would change the picture or end the program.
void PaintOffscreen() {
    std::vector<QByteArray> variables;
    for (char** entry = environ; *entry; ++entry) {
        const QByteArray name = QByteArray(*entry).split('=').first();
        if (name.startsWith("QT_") && name != "QT_PLUGIN_PATH")
            variables.push_back(name);
    }
    for (const QByteArray& name : variables)
        qunsetenv(name.constData());
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace

std::string PrepareQt() {
    if (!QCoreApplication::instance()) {
        PaintOffscreen();
        qInstallMessageHandler(PassOnFailures);
        static int argumentCount = 1;
        static char name[] = "corvane";
        static char* arguments[] = {name, nullptr};
        // It lives as long as the process; Qt wants no earlier end.
        [[maybe_unused]] static const auto* application = new QApplication(argumentCount, arguments);
        std::setlocale(LC_NUMERIC, "C");
    }
    // Without fonts there are still families, whose letters are empty boxes.
    if (!QFontMetrics(QFont("Arial")).inFont(QLatin1Char('A')))
        return "no font was found, so a chart's texts cannot be painted; install one, for example "
               "fonts-liberation";
    return {};
}

} // namespace corvane
