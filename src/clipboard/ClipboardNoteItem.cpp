#include "clipboard/ClipboardNoteItem.h"

#include "clipboard/ReferenceTime.h"
#include "core/JsonCoding.h"

QJsonObject ClipboardNoteItem::toJson() const
{
    return QJsonObject{
        {QStringLiteral("id"), id},
        {QStringLiteral("text"), text},
        {QStringLiteral("createdAt"), ReferenceTime::toSeconds(createdAt)},
        {QStringLiteral("updatedAt"), ReferenceTime::toSeconds(updatedAt)},
    };
}

std::optional<ClipboardNoteItem> ClipboardNoteItem::fromJson(const QJsonValue& value)
{
    const QJsonObject object = value.toObject();
    auto id = JsonCoding::requiredString(object, QLatin1StringView("id"));
    auto text = JsonCoding::requiredString(object, QLatin1StringView("text"));
    auto createdAt = ReferenceTime::requiredDate(object, QLatin1StringView("createdAt"));
    auto updatedAt = ReferenceTime::requiredDate(object, QLatin1StringView("updatedAt"));
    if (!value.isObject() || !id || !text || !createdAt || !updatedAt) {
        return std::nullopt;
    }
    return ClipboardNoteItem{std::move(*id), std::move(*text), *createdAt, *updatedAt};
}
