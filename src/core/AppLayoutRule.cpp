#include "core/AppLayoutRule.h"

#include "core/JsonCoding.h"

namespace {

QJsonObject encodeRule(const AppLayoutRule& rule)
{
    return QJsonObject{
        // Upper case without braces is the form earlier versions wrote and read.
        {QLatin1String("id"), rule.id.toString(QUuid::WithoutBraces).toUpper()},
        {QLatin1String("bundleIdentifier"), rule.bundleIdentifier},
        {QLatin1String("appName"), rule.appName},
        {QLatin1String("appPath"), rule.appPath},
        {QLatin1String("layoutName"), rule.layoutName},
        {QLatin1String("isEnabled"), rule.isEnabled},
    };
}

std::optional<QUuid> parseUuid(const QString& text)
{
    // Only the bare 36-character form; QUuid would also take braces, and gives the nil id for garbage.
    if (text.size() != 36) {
        return std::nullopt;
    }
    const QUuid id = QUuid::fromString(text);
    if (id.isNull() && text != QLatin1String("00000000-0000-0000-0000-000000000000")) {
        return std::nullopt;
    }
    return id;
}

std::optional<AppLayoutRule> decodeRule(const QJsonValue& value)
{
    using namespace JsonCoding;
    const QJsonObject object = value.toObject();
    const auto idText = requiredString(object, QLatin1String("id"));
    const auto id = idText ? parseUuid(*idText) : std::nullopt;
    auto bundleIdentifier = requiredString(object, QLatin1String("bundleIdentifier"));
    auto appName = requiredString(object, QLatin1String("appName"));
    auto appPath = requiredString(object, QLatin1String("appPath"));
    auto layoutName = requiredString(object, QLatin1String("layoutName"));
    const auto isEnabled = requiredBool(object, QLatin1String("isEnabled"));
    if (!value.isObject() || !id || !bundleIdentifier || !appName || !appPath || !layoutName || !isEnabled) {
        return std::nullopt;
    }
    return AppLayoutRule{*id,
                         std::move(*bundleIdentifier),
                         std::move(*appName),
                         std::move(*appPath),
                         std::move(*layoutName),
                         *isEnabled};
}

} // namespace

QByteArray AppLayoutRule::encodeList(const QList<AppLayoutRule>& rules)
{
    return JsonCoding::encodeArray(rules, encodeRule);
}

std::optional<QList<AppLayoutRule>> AppLayoutRule::decodeList(const QByteArray& json)
{
    return JsonCoding::decodeArray<AppLayoutRule>(json, decodeRule);
}
