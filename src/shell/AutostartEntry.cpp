#include "shell/AutostartEntry.h"

#include "core/AtomicFileWrite.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

AutostartEntry::AutostartEntry(QString directory, QString executable)
    : m_directory(std::move(directory)), m_executable(std::move(executable))
{}

AutostartEntry AutostartEntry::forCurrentUser()
{
    return AutostartEntry(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                              QStringLiteral("/autostart"),
                          QCoreApplication::applicationFilePath());
}

QString AutostartEntry::filePath() const
{
    return m_directory + QStringLiteral("/mivora.desktop");
}

bool AutostartEntry::isEnabled() const
{
    return QFile::exists(filePath());
}

bool AutostartEntry::setEnabled(bool enabled)
{
    if (!enabled) {
        return !QFile::exists(filePath()) || QFile::remove(filePath());
    }
    if (!QDir().mkpath(m_directory)) {
        return false;
    }
    // Quoted as the desktop entry format asks, so a path with spaces still starts the program.
    QString exec = m_executable;
    exec.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char('"'), QStringLiteral("\\\""));
    const QString entry = QStringLiteral("[Desktop Entry]\n"
                                         "Type=Application\n"
                                         "Name=MivoraAI\n"
                                         "Comment=Fix, rewrite and translate selected text\n"
                                         "Exec=\"%1\"\n"
                                         "Icon=mivora\n"
                                         "Terminal=false\n"
                                         "X-GNOME-Autostart-enabled=true\n")
                              .arg(exec);
    return writeFileAtomically(filePath(), entry.toUtf8());
}
