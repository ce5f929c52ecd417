#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QTimeZone>
#include <algorithm>
#include <cmath>
#include <optional>

// Stored timestamps count seconds, as a floating-point number, from 2001-01-01 00:00:00 UTC; data written
// by earlier versions of the program uses that origin.
namespace ReferenceTime {

inline constexpr qint64 epochOffsetMSecs = 978307200000;

inline double toSeconds(const QDateTime& time)
{
    return double(time.toMSecsSinceEpoch() - epochOffsetMSecs) / 1000.0;
}

// Values beyond any real date (or NaN) are clamped rather than trusted, so damaged data still loads.
inline QDateTime fromSeconds(double seconds)
{
    constexpr double limit = 1e13;
    seconds = std::isnan(seconds) ? 0.0 : std::clamp(seconds, -limit, limit);
    return QDateTime::fromMSecsSinceEpoch(qint64(std::llround(seconds * 1000.0)) + epochOffsetMSecs, Qt::UTC);
}

// A timestamp member, or nullopt when it is missing or not a number.
inline std::optional<QDateTime> requiredDate(const QJsonObject& object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    if (!value.isDouble()) {
        return std::nullopt;
    }
    return fromSeconds(value.toDouble());
}

} // namespace ReferenceTime
