#include "shell/CommandLine.h"
#include "shell/MivoraNativeApp.h"
#include "shell/UnixSignalWatcher.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFile>
#include <QLockFile>
#include <QStandardPaths>
#include <QTextStream>
#include <memory>
#include <qcoro/qcorotask.h>

namespace {

void setIdentity()
{
    QCoreApplication::setOrganizationName(QStringLiteral("MivoraAI"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("mivora.ai"));
    QCoreApplication::setApplicationName(QStringLiteral("mivora"));
}

QString readStandardInput()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        return {};
    }
    QString text = QString::fromUtf8(input.readAll());
    // A shell pipe adds one trailing newline that is not part of the user's text.
    if (text.endsWith(QLatin1Char('\n'))) {
        text.chop(1);
    }
    return text;
}

int runOnce(int argc, char** argv, const CommandLine& command)
{
    QCoreApplication app(argc, argv);
    setIdentity();
    MivoraNativeApp mivora;
    const QString text = command.text.value_or(readStandardInput());
    int exitCode = 1;
    auto task = mivora.runCommand(command.action, text).then([&](int code) {
        exitCode = code;
        QCoreApplication::exit(code);
    });
    if (!task.isReady()) {
        app.exec();
    }
    return exitCode;
}

int runResident(int argc, char** argv)
{
    QApplication app(argc, argv);
    setIdentity();
    QApplication::setQuitOnLastWindowClosed(false);

    // One resident instance per user session: a second would fight the first over every global hotkey.
    QLockFile instanceLock(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
                           QStringLiteral("/mivora.lock"));
    if (!instanceLock.tryLock(0)) {
        QTextStream(stderr) << "MivoraAI is already running." << Qt::endl;
        return 1;
    }

    UnixSignalWatcher signalWatcher;
    QObject::connect(&signalWatcher, &UnixSignalWatcher::terminationRequested, &app, &QCoreApplication::quit);
    MivoraNativeApp mivora;
    mivora.start();
    return app.exec();
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    const CommandLine command = CommandLine::parse(arguments);
    switch (command.mode) {
    case CommandLine::Mode::help:
        QTextStream(stdout) << CommandLine::usage();
        return 0;
    case CommandLine::Mode::invalid:
        QTextStream(stderr) << command.error << "\n\n" << CommandLine::usage();
        return 2;
    case CommandLine::Mode::run:
        return runOnce(argc, argv, command);
    case CommandLine::Mode::resident:
        break;
    }
    return runResident(argc, argv);
}
