#include "EventLoopWait.h"

#include "AwaitTask.h"

#include <QProcess>

using namespace std::chrono_literals;

bool spinUntil(const std::function<bool()>& done, std::chrono::milliseconds guard)
{
    return AwaitTask::until(done, guard);
}

void pauseFor(std::chrono::milliseconds duration)
{
    spinUntil([] { return false; }, duration);
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

bool waitForWindowManager()
{
    return spinUntil([] { return runTool(QStringLiteral("wmctrl"), {QStringLiteral("-m")}).has_value(); });
}

std::optional<QString> findWindow(const QStringList& criteria, std::chrono::milliseconds guard)
{
    // WORKAROUND: xdotool's search walks the whole window tree and dies on a window that goes meanwhile (a
    // menu closing, another test's window); the search is simply asked again until the guard runs out.
    std::optional<QString> found;
    spinUntil(
        [&] {
            const auto ids =
                runTool(QStringLiteral("xdotool"),
                        QStringList{QStringLiteral("search"), QStringLiteral("--onlyvisible")} + criteria);
            if (ids && !ids->trimmed().isEmpty()) {
                found = QString::fromLatin1(ids->trimmed().split('\n').first());
            }
            return found.has_value();
        },
        guard);
    return found;
}

bool windowShown(const QString& title)
{
    return runTool(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                               QStringLiteral("--name"), QStringLiteral("^%1$").arg(title)})
        .has_value();
}

bool windowFocused(const QString& title)
{
    const std::optional<QByteArray> name = runTool(
        QStringLiteral("xdotool"), {QStringLiteral("getwindowfocus"), QStringLiteral("getwindowname")});
    return name && QString::fromUtf8(name->trimmed()) == title;
}

bool startTrayHost(QProcess& host)
{
    host.start(QStringLiteral("trayer"),
               {QStringLiteral("--edge"), QStringLiteral("top"), QStringLiteral("--align"),
                QStringLiteral("right"), QStringLiteral("--widthtype"), QStringLiteral("request"),
                QStringLiteral("--height"), QStringLiteral("24")});
    // The tray host owns the tray selection once its window is there.
    return host.waitForStarted() && spinUntil([] {
               return runTool(QStringLiteral("xdotool"),
                              {QStringLiteral("search"), QStringLiteral("--class"), QStringLiteral("trayer")})
                   .has_value();
           });
}

std::optional<QByteArray> clipboardBytes(const QString& type)
{
    return runTool(QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard"),
                                             QStringLiteral("-o"), QStringLiteral("-t"), type});
}
