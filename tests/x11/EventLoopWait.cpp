#include "EventLoopWait.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>

using namespace std::chrono_literals;

bool spinUntil(const std::function<bool()>& done, std::chrono::milliseconds guard)
{
    if (done()) {
        return true;
    }
    QEventLoop loop;
    QTimer check;
    QObject::connect(&check, &QTimer::timeout, &loop, [&] {
        if (done()) {
            loop.quit();
        }
    });
    QTimer::singleShot(guard, &loop, &QEventLoop::quit);
    check.start(5);
    loop.exec();
    return done();
}

std::optional<QByteArray> runTool(const QString& program, const QStringList& arguments,
                                  const QByteArray& input)
{
    QProcess process;
    QByteArray output;
    QObject::connect(&process, &QProcess::readyReadStandardOutput,
                     [&] { output += process.readAllStandardOutput(); });
    process.start(program, arguments);
    if (!spinUntil([&] {
            return process.state() == QProcess::Running || process.state() == QProcess::NotRunning;
        })) {
        return std::nullopt;
    }
    process.write(input);
    process.closeWriteChannel();
    if (!spinUntil([&] { return process.state() == QProcess::NotRunning; }, 10s)) {
        process.kill();
        process.waitForFinished(1000);
        return std::nullopt;
    }
    output += process.readAllStandardOutput();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        return std::nullopt;
    }
    return output;
}
