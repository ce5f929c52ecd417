#pragma once

#include "platform/RunningApplication.h"

#include <QStringList>

// Who this program is to the desktop and to the permission store; every decision that an application or a
// window is this program's own goes through here.
class OwnApplication {
public:
    // The identifiers this program runs under. Non-blocking.
    static const QStringList& mivoraBundleIdentifiers();
    // Every identifier the program was ever granted permissions under, in the order a reset goes through
    // them. Non-blocking.
    static const QStringList& mivoraBundleIds();
    // Whether the application is this program: one of its identifiers, or the very process given as this
    // one (a desktop without identifiers still knows its processes). Non-blocking.
    static bool isOwn(const RunningApplication& application, qint32 currentProcessIdentifier);
};
