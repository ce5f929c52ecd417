#include "core/PromptStyle.h"

#include "core/JsonCoding.h"

QJsonObject PromptStyle::toJson() const
{
    return QJsonObject{
        {QLatin1String("id"), id},
        {QLatin1String("name"), name},
        {QLatin1String("prompt"), prompt},
        {QLatin1String("hotkey"), hotkey},
        {QLatin1String("autoReplace"), autoReplace},
    };
}

std::optional<PromptStyle> PromptStyle::fromJson(const QJsonValue& value)
{
    using namespace JsonCoding;
    const QJsonObject object = value.toObject();
    auto id = requiredString(object, QLatin1String("id"));
    auto name = requiredString(object, QLatin1String("name"));
    auto prompt = requiredString(object, QLatin1String("prompt"));
    auto hotkey = requiredString(object, QLatin1String("hotkey"));
    const auto autoReplace = requiredBool(object, QLatin1String("autoReplace"));
    if (!value.isObject() || !id || !name || !prompt || !hotkey || !autoReplace) {
        return std::nullopt;
    }
    return PromptStyle{std::move(*id), std::move(*name), std::move(*prompt), std::move(*hotkey),
                       *autoReplace};
}
