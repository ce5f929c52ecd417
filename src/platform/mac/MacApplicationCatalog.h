#pragma once

#include "platform/ApplicationCatalog.h"

#include <QStringList>

// The application bundles in the Applications folders of the system and of the user.
class MacApplicationCatalog : public ApplicationCatalog {
public:
    // Folders searched one level deep for ".app" bundles.
    explicit MacApplicationCatalog(QStringList folders = standardFolders());

    static QStringList standardFolders();

    QList<InstalledApplication> installedApplications() override;
    std::optional<InstalledApplication> application(const QString& path) override;

private:
    QStringList m_folders;
};
