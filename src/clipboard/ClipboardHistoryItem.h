#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <optional>

// One text taken from the clipboard.
struct ClipboardHistoryItem {
    // "<seconds since 1970>-<hash of the text>"; unique within a run, nothing else.
    QString id;
    // Trimmed at both ends.
    QString text;
    QDateTime createdAt;
    // User-perceived characters of text.
    int chars = 0;

    bool operator==(const ClipboardHistoryItem&) const = default;

    // User-perceived characters (extended grapheme clusters).
    static int characterCount(const QString& text);
    // A new item for text captured at the given time.
    static ClipboardHistoryItem make(QString text, const QDateTime& now);

    QJsonObject toJson() const;
    // nullopt when any of the four keys is missing or of the wrong type.
    static std::optional<ClipboardHistoryItem> fromJson(const QJsonValue& value);

    static QByteArray encodeList(const QList<ClipboardHistoryItem>& items);
    // All or nothing: one bad entry fails the whole list.
    static std::optional<QList<ClipboardHistoryItem>> decodeList(const QByteArray& data);
};
