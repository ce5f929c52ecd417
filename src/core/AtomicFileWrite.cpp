#include "core/AtomicFileWrite.h"

#include <QSaveFile>

bool writeFileAtomically(const QString& path, const QByteArray& data)
{
    QSaveFile file(path);
    // WORKAROUND: QSaveFile buffers the write and commits even when flushing that buffer came up short (a
    // full disk, a file size limit), which would put a cut-off file in place of a whole one. Flushed here,
    // a short write leaves the old file.
    return file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.flush() &&
           file.commit();
}
