#include "exchange/OwnApplication.h"

namespace {
const QString nativeIdentifier = QStringLiteral("ai.mivora.native");
const QString desktopIdentifier = QStringLiteral("ai.mivora.desktop");
} // namespace

const QStringList& OwnApplication::mivoraBundleIdentifiers()
{
    static const QStringList identifiers{nativeIdentifier, nativeIdentifier + QStringLiteral(".test"),
                                         desktopIdentifier};
    return identifiers;
}

const QStringList& OwnApplication::mivoraBundleIds()
{
    // Earlier releases ran under the last three.
    static const QStringList identifiers{
        nativeIdentifier, desktopIdentifier, QStringLiteral("com.olvek.mivora"),
        QStringLiteral("com.olvek.mivora.desktop"), QStringLiteral("com.mivora.desktop")};
    return identifiers;
}

bool OwnApplication::isOwn(const RunningApplication& application, qint32 currentProcessIdentifier)
{
    return application.processIdentifier == currentProcessIdentifier ||
           mivoraBundleIdentifiers().contains(application.bundleIdentifier);
}
