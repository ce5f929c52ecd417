#include "FuzzedDefaultsStore.h"

#include <QDateTime>
#include <QStringList>
#include <QVariantList>

namespace {

QVariant decodeValue(int type, const QByteArray& payload)
{
    const QString text = QString::fromUtf8(payload);
    switch (type) {
    case 0:
        return text;
    case 1:
        return payload;
    case 2:
        return !payload.isEmpty() && (payload.front() & 1) != 0;
    case 3:
        return text.toLongLong();
    case 4:
        return text.toDouble();
    case 5:
        return text.split(u'\n');
    case 6: {
        QVariantList list;
        for (const QString& line : text.split(u'\n')) {
            list.append(line);
        }
        return list;
    }
    default:
        return QDateTime::fromString(text, Qt::ISODateWithMs);
    }
}

} // namespace

FuzzedDefaultsStore::FuzzedDefaultsStore(const QByteArray& input)
{
    qsizetype at = 0;
    while (at < input.size()) {
        const int type = static_cast<unsigned char>(input.at(at++)) % 8;
        qsizetype keyEnd = input.indexOf('\n', at);
        if (keyEnd < 0) {
            keyEnd = input.size();
        }
        const QString key = QString::fromUtf8(input.mid(at, keyEnd - at));
        at = keyEnd + 1;
        qsizetype length = 0;
        if (at + 2 <= input.size()) {
            length = static_cast<unsigned char>(input.at(at)) |
                     (static_cast<unsigned char>(input.at(at + 1)) << 8);
        }
        at += 2;
        const QByteArray payload = at < input.size() ? input.mid(at, length) : QByteArray();
        at += length;
        setValue(key, decodeValue(type, payload));
    }
}
