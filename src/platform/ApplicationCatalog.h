#pragma once

#include <QList>
#include <QString>
#include <optional>

// One application the user can start, as the desktop lists it.
struct InstalledApplication {
    // What the workspace reports as the bundle identifier of this application's windows; empty when it
    // cannot be told.
    QString identifier;
    QString name;
    // A theme icon name or an absolute image path; empty when the entry names none.
    QString icon;
    // Where the application is described (its bundle or desktop entry).
    QString path;

    bool operator==(const InstalledApplication&) const = default;
};

// The applications installed for this user.
class ApplicationCatalog {
public:
    virtual ~ApplicationCatalog() = default;

    // Every application meant to be shown to the user, sorted by name. Blocking (reads files), GUI thread.
    virtual QList<InstalledApplication> installedApplications() = 0;
    // The application described at path, shown or not; nullopt when it cannot be read. Blocking, GUI thread.
    virtual std::optional<InstalledApplication> application(const QString& path) = 0;
};
