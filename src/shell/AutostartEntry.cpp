#include "shell/AutostartEntry.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
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
    QSaveFile file(filePath());
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    // WORKAROUND: QSaveFile commits after a flush that came up short (a full disk); checked here, a short
    // write keeps the old entry instead of a cut-off one.
    const QByteArray bytes = entry.toUtf8();
    return file.write(bytes) == bytes.size() && file.flush() && file.commit();
}
