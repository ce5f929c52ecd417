#include "net/StrictJson.h"

#include "net/ResponseDecodingError.h"

#include <cmath>

namespace {

// The member, or none when it is absent or null.
std::optional<QJsonValue> present(const QJsonObject& object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    if (value.isUndefined() || value.isNull()) {
        return std::nullopt;
    }
    return value;
}

} // namespace

std::optional<QString> StrictJson::optionalString(const QJsonObject& object, QLatin1StringView key)
{
    const auto value = present(object, key);
    if (!value) {
        return std::nullopt;
    }
    if (!value->isString()) {
        throw ResponseDecodingError();
    }
    return value->toString();
}

std::optional<bool> StrictJson::optionalBool(const QJsonObject& object, QLatin1StringView key)
{
    const auto value = present(object, key);
    if (!value) {
        return std::nullopt;
    }
    if (!value->isBool()) {
        throw ResponseDecodingError();
    }
    return value->toBool();
}

std::optional<qint64> StrictJson::optionalInteger(const QJsonObject& object, QLatin1StringView key)
{
    const auto value = present(object, key);
    if (!value) {
        return std::nullopt;
    }
    const double number = value->toDouble(std::nan(""));
    constexpr double limit = 9007199254740992.0; // 2^53: beyond it doubles no longer hold every integer
    if (!value->isDouble() || std::trunc(number) != number || std::abs(number) > limit) {
        throw ResponseDecodingError();
    }
    return static_cast<qint64>(number);
}
