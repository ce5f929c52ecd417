#include "ProcessMemory.h"

#include <QFile>

std::optional<long> residentKibibytes(qint64 processId)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(processId));
    if (!status.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) {
            return line.mid(6).trimmed().split(' ').first().toLong();
        }
    }
    return std::nullopt;
}

double residentMegabytes(qint64 processId)
{
    return double(residentKibibytes(processId).value_or(0)) / 1024.0;
}
