#include "charts/qt_environment.h"

#include <QApplication>
#include <QFontMetrics>
#include <clocale>
#include <cstdio>

namespace corvane {
namespace {

/// Words of Qt for its own developers, as of a runtime folder that painting does not need, are not for users.
void PassOnFailures(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "corvane: %s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

} // namespace

std::string PrepareQt() {
    if (!QCoreApplication::instance()) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
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
