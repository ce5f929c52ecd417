#pragma once

#include "core/UiLanguage.h"

#include <QJsonValue>
#include <QString>
#include <optional>

// A text of the update server, given either once for all languages (a plain JSON string) or per language
// (an object with "en" and "ru").
struct LocalizedUpdateText {
    std::optional<QString> en;
    std::optional<QString> ru;
    std::optional<QString> fallback;

    // None for an absent or null value; throws ResponseDecodingError for any other JSON type.
    static std::optional<LocalizedUpdateText> fromJson(const QJsonValue& value);

    // The text of that language, else the one for all languages, else English, else Russian.
    std::optional<QString> value(UiLanguage language) const;
};
