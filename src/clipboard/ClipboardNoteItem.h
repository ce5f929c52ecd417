#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <optional>

// One note of a notes tab.
struct ClipboardNoteItem {
    // Upper-case UUID.
    QString id;
    // Trimmed at both ends, never empty.
    QString text;
    QDateTime createdAt;
    // Last change of the text.
    QDateTime updatedAt;

    bool operator==(const ClipboardNoteItem&) const = default;

    QJsonObject toJson() const;
    // nullopt when any key is missing or of the wrong type.
    static std::optional<ClipboardNoteItem> fromJson(const QJsonValue& value);
};
