#include "platform/x11/XdgApplicationCatalog.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>
#include <algorithm>
#include <memory>

// WORKAROUND: GIO's headers have a struct member named "signals", which Qt defines as a keyword macro;
// nothing below needs the keyword.
#undef signals
#include <gio/gdesktopappinfo.h>

namespace {

struct ObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
struct Free {
    void operator()(gpointer memory) const { g_free(memory); }
};
using AppInfo = std::unique_ptr<GDesktopAppInfo, ObjectUnref>;
using OwnedText = std::unique_ptr<char, Free>;

QString text(const char* value)
{
    return value == nullptr ? QString() : QString::fromUtf8(value);
}

} // namespace

XdgApplicationCatalog XdgApplicationCatalog::forCurrentUser()
{
    return XdgApplicationCatalog(QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation));
}

QString XdgApplicationCatalog::windowClassOfProgram(const QString& program)
{
    QString name = QFileInfo(program).fileName();
    if (!name.isEmpty()) {
        name[0] = name[0].toUpper();
    }
    return name;
}

std::optional<InstalledApplication> XdgApplicationCatalog::read(const QString& path, bool* hidden)
{
    // GIO parses the entry as the desktop does: localized names, TryExec and a program that must exist.
    const AppInfo info(g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
    if (!info) {
        return std::nullopt;
    }
    if (hidden != nullptr) {
        *hidden =
            g_desktop_app_info_get_is_hidden(info.get()) || g_desktop_app_info_get_nodisplay(info.get());
    }
    InstalledApplication application;
    application.path = path;
    // Read directly: GIO names an entry without a name "Unnamed".
    const OwnedText name(g_desktop_app_info_get_locale_string(info.get(), "Name"));
    application.name = text(name.get());
    if (application.name.isEmpty()) {
        application.name = QFileInfo(path).completeBaseName();
    }
    const OwnedText icon(g_desktop_app_info_get_string(info.get(), "Icon"));
    application.icon = text(icon.get());
    application.identifier = text(g_desktop_app_info_get_startup_wm_class(info.get()));
    if (application.identifier.isEmpty()) {
        application.identifier =
            windowClassOfProgram(text(g_app_info_get_executable(G_APP_INFO(info.get()))));
    }
    return application;
}

QList<InstalledApplication> XdgApplicationCatalog::installedApplications()
{
    QList<InstalledApplication> result;
    QSet<QString> seenIds;
    for (const QString& directory : m_directories) {
        const QDir root(directory);
        QDirIterator entries(directory, {QStringLiteral("*.desktop")}, QDir::Files | QDir::Readable,
                             QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
        while (entries.hasNext()) {
            const QString path = entries.next();
            // The desktop-file id: the path below the folder with "/" turned into "-".
            const QString id = root.relativeFilePath(path).replace(QLatin1Char('/'), QLatin1Char('-'));
            if (seenIds.contains(id)) {
                continue;
            }
            seenIds.insert(id);
            bool hidden = false;
            std::optional<InstalledApplication> application = read(path, &hidden);
            if (application && !hidden) {
                result.append(std::move(*application));
            }
        }
    }
    std::sort(result.begin(), result.end(), [](const InstalledApplication& a, const InstalledApplication& b) {
        return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
    });
    return result;
}

std::optional<InstalledApplication> XdgApplicationCatalog::application(const QString& path)
{
    return read(path, nullptr);
}
