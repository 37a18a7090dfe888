#include "support/temporary_folder.h"

#include <QApplication>
#include <clocale>
#include <gtest/gtest.h>

namespace {

/// What Qt complains about is a fault of ours, but for what the offscreen platform cannot do.
void FailOnWarnings(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtDebugMsg && type != QtInfoMsg && !message.contains("This plugin does not support"))
        ADD_FAILURE() << message.toStdString();
}

} // namespace

int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    const corvane::testing::TemporaryFolder home;
    qputenv("XDG_RUNTIME_DIR", home.Path().c_str());
    qputenv("XDG_CONFIG_HOME", home.Path().c_str());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argumentCount, arguments);
    std::setlocale(LC_NUMERIC, "C");
    qInstallMessageHandler(FailOnWarnings);
    return RUN_ALL_TESTS();
}
