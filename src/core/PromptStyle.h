#pragma once

#include <QJsonObject>
#include <QString>
#include <optional>

// A rewrite style; built-ins come from MivoraPromptLibrary, custom ids start with "custom-".
struct PromptStyle {
    QString id;
    QString name;
    QString prompt;
    QString hotkey;
    bool autoReplace = true;

    bool operator==(const PromptStyle&) const = default;

    QJsonObject toJson() const;
    // All five keys are required with their JSON types; anything else gives nullopt.
    static std::optional<PromptStyle> fromJson(const QJsonValue& value);
};
