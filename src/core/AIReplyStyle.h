#pragma once

#include <QJsonObject>
#include <QString>
#include <optional>

// A reply style of the assistant panel; custom ids start with "custom-reply-".
struct AIReplyStyle {
    QString id;
    QString name;
    QString prompt;
    QString hotkey;

    bool operator==(const AIReplyStyle&) const = default;

    QJsonObject toJson() const;
    // All four keys are required with their JSON types; anything else gives nullopt.
    static std::optional<AIReplyStyle> fromJson(const QJsonValue& value);
};
