#include "clipboard/ClipboardHistoryItem.h"

#include "clipboard/ReferenceTime.h"
#include "core/JsonCoding.h"

#include <QHash>
#include <QLocale>
#include <QTextBoundaryFinder>
#include <climits>
#include <cmath>

int ClipboardHistoryItem::characterCount(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (finder.toNextBoundary() > 0) {
        ++count;
    }
    return count;
}

ClipboardHistoryItem ClipboardHistoryItem::make(QString text, const QDateTime& now)
{
    const double unixSeconds = double(now.toMSecsSinceEpoch()) / 1000.0;
    ClipboardHistoryItem item;
    item.id = QString::number(unixSeconds, 'g', QLocale::FloatingPointShortest) + u'-' +
              QString::number(qHash(text));
    item.chars = characterCount(text);
    item.text = std::move(text);
    item.createdAt = now;
    return item;
}

QJsonObject ClipboardHistoryItem::toJson() const
{
    return QJsonObject{
        {QStringLiteral("id"), id},
        {QStringLiteral("text"), text},
        {QStringLiteral("createdAt"), ReferenceTime::toSeconds(createdAt)},
        {QStringLiteral("chars"), chars},
    };
}

std::optional<ClipboardHistoryItem> ClipboardHistoryItem::fromJson(const QJsonValue& value)
{
    const QJsonObject object = value.toObject();
    auto id = JsonCoding::requiredString(object, QLatin1StringView("id"));
    auto text = JsonCoding::requiredString(object, QLatin1StringView("text"));
    auto createdAt = ReferenceTime::requiredDate(object, QLatin1StringView("createdAt"));
    const QJsonValue chars = object.value(QLatin1StringView("chars"));
    if (!value.isObject() || !id || !text || !createdAt || !chars.isDouble()) {
        return std::nullopt;
    }
    const double count = chars.toDouble();
    if (count != std::floor(count) || count < INT_MIN || count > INT_MAX) {
        return std::nullopt;
    }
    return ClipboardHistoryItem{std::move(*id), std::move(*text), *createdAt, int(count)};
}

QByteArray ClipboardHistoryItem::encodeList(const QList<ClipboardHistoryItem>& items)
{
    return JsonCoding::encodeArray(items, [](const ClipboardHistoryItem& item) { return item.toJson(); });
}

std::optional<QList<ClipboardHistoryItem>> ClipboardHistoryItem::decodeList(const QByteArray& data)
{
    return JsonCoding::decodeArray<ClipboardHistoryItem>(data, &ClipboardHistoryItem::fromJson);
}
