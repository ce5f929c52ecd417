#pragma once

#include <QJsonObject>
#include <QString>
#include <optional>

// Optional members of a decoded answer. Absent or null reads as none; a member of the wrong JSON type makes
// the whole answer undecodable (ResponseDecodingError), so a malformed answer never passes half-read.
namespace StrictJson {
std::optional<QString> optionalString(const QJsonObject& object, QLatin1StringView key);
std::optional<bool> optionalBool(const QJsonObject& object, QLatin1StringView key);
// Whole numbers only; 3.5 or 1e30 do not decode.
std::optional<qint64> optionalInteger(const QJsonObject& object, QLatin1StringView key);
} // namespace StrictJson
