#include "core/AIReplyStyle.h"

#include "core/JsonCoding.h"

QJsonObject AIReplyStyle::toJson() const
{
    return QJsonObject{
        {QLatin1String("id"), id},
        {QLatin1String("name"), name},
        {QLatin1String("prompt"), prompt},
        {QLatin1String("hotkey"), hotkey},
    };
}

std::optional<AIReplyStyle> AIReplyStyle::fromJson(const QJsonValue& value)
{
    using namespace JsonCoding;
    const QJsonObject object = value.toObject();
    auto id = requiredString(object, QLatin1String("id"));
    auto name = requiredString(object, QLatin1String("name"));
    auto prompt = requiredString(object, QLatin1String("prompt"));
    auto hotkey = requiredString(object, QLatin1String("hotkey"));
    if (!value.isObject() || !id || !name || !prompt || !hotkey) {
        return std::nullopt;
    }
    return AIReplyStyle{std::move(*id), std::move(*name), std::move(*prompt), std::move(*hotkey)};
}
