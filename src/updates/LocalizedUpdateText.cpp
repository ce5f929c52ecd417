#include "updates/LocalizedUpdateText.h"

#include "net/ResponseDecodingError.h"
#include "net/StrictJson.h"

#include <QJsonObject>

std::optional<LocalizedUpdateText> LocalizedUpdateText::fromJson(const QJsonValue& value)
{
    if (value.isUndefined() || value.isNull()) {
        return std::nullopt;
    }
    if (value.isString()) {
        return LocalizedUpdateText{std::nullopt, std::nullopt, value.toString()};
    }
    if (!value.isObject()) {
        throw ResponseDecodingError();
    }
    const QJsonObject object = value.toObject();
    return LocalizedUpdateText{StrictJson::optionalString(object, QLatin1StringView("en")),
                               StrictJson::optionalString(object, QLatin1StringView("ru")), std::nullopt};
}

std::optional<QString> LocalizedUpdateText::value(UiLanguage language) const
{
    const std::optional<QString>& own = language == UiLanguage::ru ? ru : en;
    for (const std::optional<QString>* candidate : {&own, &fallback, &en, &ru}) {
        if (*candidate) {
            return *candidate;
        }
    }
    return std::nullopt;
}
