#include "platform/x11/XdgApplicationCatalog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// Writes one desktop entry below root; folders are made as needed.
void writeEntry(const QString& root, const QString& relativePath, const QByteArray& body)
{
    const QString path = root + QLatin1Char('/') + relativePath;
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(body);
}

QByteArray entry(const QByteArray& keys)
{
    return "[Desktop Entry]\nType=Application\n" + keys;
}

} // namespace

void PrintTo(const InstalledApplication& a, std::ostream* out)
{
    *out << QStringList{a.identifier, a.name, a.icon, a.path}.join(QLatin1Char('|')).toStdString();
}

TEST(XdgApplicationCatalogTest, ListsWhatTheDesktopShowsWithTheWindowClassAsIdentifier)
{
    QTemporaryDir home;
    const QString user = home.filePath(QStringLiteral("user"));
    const QString system = home.filePath(QStringLiteral("system"));
    struct Case {
        QString root;
        QString file;
        QByteArray body;
    };
    const Case cases[] = {
        // A declared window class is taken as it stands.
        {user, "editor.desktop",
         entry("Name=Editor\nExec=sh -c true %F\nStartupWMClass=EditorWin\nIcon=edit\n")},
        // Without one, the program's name as toolkits turn it into a class.
        {system, "viewer.desktop", entry("Name=Viewer\nExec=/bin/sh --viewer\nIcon=/tmp/viewer.png\n")},
        // Entries in subfolders count, with no name the file name serves.
        {system, "kde/tool.desktop", entry("Exec=sh\n")},
        // Left out: hidden, not for display, not an application, unparsable, program missing.
        {system, "hidden.desktop", entry("Name=Hidden\nExec=sh\nHidden=true\n")},
        {system, "nodisplay.desktop", entry("Name=NoDisplay\nExec=sh\nNoDisplay=true\n")},
        {system, "link.desktop", "[Desktop Entry]\nType=Link\nName=Link\nURL=http://example.com\n"},
        {system, "broken.desktop", "this is not a desktop entry\n"},
        {system, "gone.desktop", entry("Name=Gone\nExec=/nonexistent/gone\n")},
        // The user's copy shadows the system's: renamed in one case, hidden in the other.
        {system, "editor.desktop", entry("Name=Old Editor\nExec=sh\n")},
        {user, "removed.desktop", entry("Name=Removed\nExec=sh\nHidden=true\n")},
        {system, "removed.desktop", entry("Name=Removed\nExec=sh\n")},
    };
    for (const Case& c : cases) {
        writeEntry(c.root, c.file, c.body);
    }

    XdgApplicationCatalog catalog({user, home.filePath(QStringLiteral("missing")), system});
    const QList<InstalledApplication> listed = catalog.installedApplications();

    const QList<InstalledApplication> expected{
        {QStringLiteral("EditorWin"), QStringLiteral("Editor"), QStringLiteral("edit"),
         user + "/editor.desktop"},
        {QStringLiteral("Sh"), QStringLiteral("tool"), QString(), system + "/kde/tool.desktop"},
        {QStringLiteral("Sh"), QStringLiteral("Viewer"), QStringLiteral("/tmp/viewer.png"),
         system + "/viewer.desktop"},
    };
    EXPECT_EQ(listed, expected);
    // A rule's application is found again by its path, even when the menu does not show it.
    EXPECT_EQ(catalog.application(system + "/hidden.desktop").value().name, QStringLiteral("Hidden"));
    EXPECT_FALSE(catalog.application(system + "/broken.desktop"));
}
