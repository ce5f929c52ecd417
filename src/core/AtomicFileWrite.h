#pragma once

#include <QByteArray>
#include <QString>

// Replaces the file at path with data in one rename, or leaves the file as it was and answers false (a full
// disk, a folder that cannot be written). Blocking; any thread.
bool writeFileAtomically(const QString& path, const QByteArray& data);
