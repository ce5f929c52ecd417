#include "platform/mac/MacApplicationCatalog.h"

#include "platform/mac/MacStringBridge.h"

#include <Foundation/Foundation.h>
#include <algorithm>

MacApplicationCatalog::MacApplicationCatalog(QStringList folders) : m_folders(std::move(folders)) {}

QStringList MacApplicationCatalog::standardFolders()
{
    return {QStringLiteral("/Applications"), QStringLiteral("/System/Applications"),
            toQString(NSHomeDirectory()) + QStringLiteral("/Applications")};
}

QList<InstalledApplication> MacApplicationCatalog::installedApplications()
{
    QList<InstalledApplication> result;
    NSFileManager* files = [NSFileManager defaultManager];
    for (const QString& folder : m_folders) {
        NSArray<NSString*>* names = [files contentsOfDirectoryAtPath:toNSString(folder) error:nil];
        for (NSUInteger index = 0; index < names.count; ++index) {
            const QString name = toQString(names[index]);
            if (!name.endsWith(QStringLiteral(".app"))) {
                continue;
            }
            if (std::optional<InstalledApplication> entry = application(folder + QLatin1Char('/') + name)) {
                result.append(std::move(*entry));
            }
        }
    }
    std::sort(result.begin(), result.end(),
              [](const InstalledApplication& first, const InstalledApplication& second) {
                  return first.name.localeAwareCompare(second.name) < 0;
              });
    return result;
}

std::optional<InstalledApplication> MacApplicationCatalog::application(const QString& path)
{
    NSBundle* bundle = [NSBundle bundleWithPath:toNSString(path)];
    if (bundle == nil) {
        return std::nullopt;
    }
    InstalledApplication entry;
    entry.identifier = toQString(bundle.bundleIdentifier);
    entry.name = toQString([[NSFileManager defaultManager] displayNameAtPath:bundle.bundlePath]);
    if (entry.name.endsWith(QStringLiteral(".app"))) {
        entry.name.chop(4);
    }
    id iconFile = [bundle objectForInfoDictionaryKey:@"CFBundleIconFile"];
    if ([iconFile isKindOfClass:[NSString class]]) {
        NSString* icon = [bundle pathForResource:iconFile ofType:@"icns"];
        if (icon == nil) {
            // The key may name the file with its extension already.
            icon = [bundle pathForResource:iconFile ofType:nil];
        }
        entry.icon = toQString(icon);
    }
    entry.path = toQString(bundle.bundlePath);
    return entry;
}
