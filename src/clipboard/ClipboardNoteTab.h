#pragma once

#include "clipboard/ClipboardNoteItem.h"

#include <QList>

// A titled group of notes.
struct ClipboardNoteTab {
    static constexpr int maximumTitleLength = 32;

    // Upper-case UUID.
    QString id;
    // Normalized, at most maximumTitleLength characters.
    QString title;
    // Newest first.
    QList<ClipboardNoteItem> notes;
    QDateTime createdAt;
    // Last change of the title or of any note.
    QDateTime updatedAt;

    bool operator==(const ClipboardNoteTab&) const = default;

    QJsonObject toJson() const;
    // nullopt when any key is missing or of the wrong type, in the tab or in one of its notes.
    static std::optional<ClipboardNoteTab> fromJson(const QJsonValue& value);

    static QByteArray encodeList(const QList<ClipboardNoteTab>& tabs);
    // All or nothing: one bad tab or note fails the whole list.
    static std::optional<QList<ClipboardNoteTab>> decodeList(const QByteArray& data);
};
