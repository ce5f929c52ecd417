#pragma once

#include "platform/ApplicationCatalog.h"

#include <QStringList>

// The applications of the freedesktop menu: the desktop entries under the "applications" folders of the
// user's and the system's data directories. An entry in an earlier folder hides every entry of the same
// desktop-file id in later ones, so a user's copy with Hidden=true removes a system application. Entries
// whose program is not installed, that are not applications, or that cannot be parsed are left out.
class XdgApplicationCatalog : public ApplicationCatalog {
public:
    // Folders in order of precedence, each holding desktop entries (subfolders included).
    explicit XdgApplicationCatalog(QStringList directories) : m_directories(std::move(directories)) {}
    // The user's folder first, then those of XDG_DATA_DIRS.
    static XdgApplicationCatalog forCurrentUser();

    QList<InstalledApplication> installedApplications() override;
    std::optional<InstalledApplication> application(const QString& path) override;

    // The window class that a toolkit gives a program's windows when its desktop entry names none: the
    // program's file name with a capital first letter, as GTK and Qt derive it.
    static QString windowClassOfProgram(const QString& program);

private:
    // nullopt when unreadable; hidden is set for Hidden and NoDisplay entries.
    static std::optional<InstalledApplication> read(const QString& path, bool* hidden);

    QStringList m_directories;
};
