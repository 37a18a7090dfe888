// One start of a program: single_instance_peer FOLDER LINE. The first writes the lines that come, a file line
// each, before it says that they are done; the others exit with what became of theirs.
#include "desktop/single_instance.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>
#include <cstdio>
#include <unistd.h>

int main(int argumentCount, char** arguments) {
    using corvane::SingleInstance;
    QCoreApplication application(argumentCount, arguments);
    const QString folder = application.arguments().at(1);
    SingleInstance instance(folder);
    if (!instance.First())
        return static_cast<int>(instance.Send(arguments[2], std::chrono::milliseconds(500)));
    QString fault;
    const bool listens = instance.Listen(
        [&](const QByteArray& line, const std::function<void()>& done) {
            if (line == "die")
                ::_exit(9);
            QTimer::singleShot(line == "slow" ? 300 : 0, [&folder, line, done] {
                QFile lines(folder + "/lines");
                if (lines.open(QIODevice::Append))
                    lines.write(line + "\n");
                lines.close();
                done();
                if (line == "quit")
                    QCoreApplication::quit();
            });
        },
        fault);
    std::puts(listens ? "first" : qPrintable(fault));
    std::fflush(stdout);
    return application.exec() == 0 ? 100 : 101;
}
