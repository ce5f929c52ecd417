#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <functional>
#include <optional>

// Lists are stored as compact JSON arrays, and decoding is all or nothing: one element that fails to decode
// fails the whole array, as the data written by earlier versions was decoded.
namespace JsonCoding {

inline QByteArray compact(const QJsonArray& array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

inline QByteArray compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

// decodeElement: const QJsonValue& -> std::optional<T>.
template <typename T, typename Decoder>
std::optional<QList<T>> decodeArray(const QByteArray& json, Decoder decodeElement)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError || !document.isArray()) {
        return std::nullopt;
    }
    const QJsonArray array = document.array();
    QList<T> result;
    result.reserve(array.size());
    for (const auto& element : array) {
        std::optional<T> decoded = decodeElement(element);
        if (!decoded) {
            return std::nullopt;
        }
        result.append(std::move(*decoded));
    }
    return result;
}

// encodeElement: const T& -> QJsonValue (or anything a QJsonValue is made from).
template <typename T, typename Encoder> QByteArray encodeArray(const QList<T>& list, Encoder encodeElement)
{
    QJsonArray array;
    for (const T& element : list) {
        array.append(std::invoke(encodeElement, element));
    }
    return compact(array);
}

// A string member, or nullopt when it is missing or not a string.
inline std::optional<QString> requiredString(const QJsonObject& object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    if (!value.isString()) {
        return std::nullopt;
    }
    return value.toString();
}

// A bool member, or nullopt when it is missing or not a JSON boolean.
inline std::optional<bool> requiredBool(const QJsonObject& object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    if (!value.isBool()) {
        return std::nullopt;
    }
    return value.toBool();
}

} // namespace JsonCoding
