#include "clipboard/ClipboardNoteTab.h"

#include "clipboard/ReferenceTime.h"
#include "core/JsonCoding.h"

QJsonObject ClipboardNoteTab::toJson() const
{
    QJsonArray noteArray;
    for (const ClipboardNoteItem& note : notes) {
        noteArray.append(note.toJson());
    }
    return QJsonObject{
        {QStringLiteral("id"), id},
        {QStringLiteral("title"), title},
        {QStringLiteral("notes"), noteArray},
        {QStringLiteral("createdAt"), ReferenceTime::toSeconds(createdAt)},
        {QStringLiteral("updatedAt"), ReferenceTime::toSeconds(updatedAt)},
    };
}

std::optional<ClipboardNoteTab> ClipboardNoteTab::fromJson(const QJsonValue& value)
{
    const QJsonObject object = value.toObject();
    auto id = JsonCoding::requiredString(object, QLatin1StringView("id"));
    auto title = JsonCoding::requiredString(object, QLatin1StringView("title"));
    auto createdAt = ReferenceTime::requiredDate(object, QLatin1StringView("createdAt"));
    auto updatedAt = ReferenceTime::requiredDate(object, QLatin1StringView("updatedAt"));
    const QJsonValue noteValues = object.value(QLatin1StringView("notes"));
    if (!value.isObject() || !id || !title || !createdAt || !updatedAt || !noteValues.isArray()) {
        return std::nullopt;
    }
    ClipboardNoteTab tab{std::move(*id), std::move(*title), {}, *createdAt, *updatedAt};
    for (const auto& noteValue : noteValues.toArray()) {
        std::optional<ClipboardNoteItem> note = ClipboardNoteItem::fromJson(noteValue);
        if (!note) {
            return std::nullopt;
        }
        tab.notes.append(std::move(*note));
    }
    return tab;
}

QByteArray ClipboardNoteTab::encodeList(const QList<ClipboardNoteTab>& tabs)
{
    return JsonCoding::encodeArray(tabs, [](const ClipboardNoteTab& tab) { return tab.toJson(); });
}

std::optional<QList<ClipboardNoteTab>> ClipboardNoteTab::decodeList(const QByteArray& data)
{
    return JsonCoding::decodeArray<ClipboardNoteTab>(data, &ClipboardNoteTab::fromJson);
}
