#include "ResidentAppProcess.h"

#include "EventLoopWait.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <csignal>

ResidentAppProcess::ResidentAppProcess(QString program) : m_program(std::move(program))
{
    for (const char* directory : {"config", "data", "runtime", "home"}) {
        QDir(m_home.path()).mkpath(QString::fromLatin1(directory));
    }
    // Qt refuses a runtime directory that others may read.
    QFile::setPermissions(m_home.filePath(QStringLiteral("runtime")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    setSetting(QStringLiteral("mivora.updates.automaticChecksEnabled"), false);
    // As after an autostart: the main window stays away, so the test's text field keeps the focus.
    setSetting(QStringLiteral("mivora.openMainWindowOnLaunch"), false);
    QObject::connect(&m_process, &QProcess::readyReadStandardError,
                     [this] { m_standardError += m_process.readAllStandardError(); });
}

ResidentAppProcess::~ResidentAppProcess()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished(2000);
    }
}

void ResidentAppProcess::setSetting(const QString& key, const QVariant& value)
{
    QSettings settings(m_home.filePath(QStringLiteral("config/MivoraAI/mivora.conf")), QSettings::IniFormat);
    settings.setValue(key, value);
}

QProcessEnvironment ResidentAppProcess::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), m_home.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_home.filePath(QStringLiteral("runtime")));
    environment.insert(QStringLiteral("HOME"), m_home.filePath(QStringLiteral("home")));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    // Failures show on the overlay; the tests read them from the diagnostic log as well.
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("mivora.status.info=true"));
    return environment;
}

bool ResidentAppProcess::start()
{
    if (!m_home.isValid()) {
        return false;
    }
    // A restart waits for its own announcement, not the last run's.
    m_standardOutput.clear();
    m_process.setProcessEnvironment(environment());
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    m_process.start(m_program, {});
    return spinUntil([&] { return m_process.state() != QProcess::Starting; }) &&
           m_process.state() == QProcess::Running;
}

bool ResidentAppProcess::waitForHotkeys(std::chrono::milliseconds guard)
{
    return spinUntil([&] { return !isRunning() || standardOutput().contains(u"MivoraAI hotkeys ready\n"); },
                     guard) &&
           isRunning();
}

bool ResidentAppProcess::waitForStandardError(const QString& text, std::chrono::milliseconds guard)
{
    return spinUntil([&] { return standardError().contains(text); }, guard);
}

QString ResidentAppProcess::standardError()
{
    m_standardError += m_process.readAllStandardError();
    return QString::fromUtf8(m_standardError);
}

QString ResidentAppProcess::standardOutput()
{
    m_standardOutput += m_process.readAllStandardOutput();
    return QString::fromUtf8(m_standardOutput);
}

bool ResidentAppProcess::isRunning() const
{
    return m_process.state() == QProcess::Running;
}

std::optional<int> ResidentAppProcess::exitCode() const
{
    if (isRunning() || m_process.exitStatus() != QProcess::NormalExit) {
        return std::nullopt;
    }
    return m_process.exitCode();
}

std::optional<int> ResidentAppProcess::terminate(std::chrono::milliseconds guard)
{
    if (!isRunning()) {
        return std::nullopt;
    }
    ::kill(pid_t(m_process.processId()), SIGTERM);
    if (!spinUntil([&] { return m_process.state() == QProcess::NotRunning; }, guard) ||
        m_process.exitStatus() != QProcess::NormalExit) {
        return std::nullopt;
    }
    return m_process.exitCode();
}

QByteArray ResidentAppProcess::storedHistory() const
{
    QFile file(directory() + QStringLiteral("/config/MivoraAI/mivora.clipboardItems.native.dat"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
