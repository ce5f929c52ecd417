#pragma once

#include <QString>
#include <array>
#include <optional>

// One row of a stored enumeration: its raw (persisted) value and its English and Russian titles.
template <typename E> struct EnumCase {
    E value;
    const char* raw;
    const char* english;
    const char* russian;
};

// Specialised next to each enumeration with `static constexpr std::array cases`, in declaration order.
template <typename E> struct EnumTable;

template <typename E> const EnumCase<E>& enumCase(E value)
{
    for (const auto& c : EnumTable<E>::cases) {
        if (c.value == value) {
            return c;
        }
    }
    return EnumTable<E>::cases.front();
}

template <typename E> QString rawValue(E value)
{
    return QString::fromUtf8(enumCase(value).raw);
}

template <typename E> std::optional<E> enumFromRaw(const QString& raw)
{
    for (const auto& c : EnumTable<E>::cases) {
        if (raw == QLatin1String(c.raw)) {
            return c.value;
        }
    }
    return std::nullopt;
}

template <typename E> constexpr auto allCases()
{
    std::array<E, EnumTable<E>::cases.size()> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = EnumTable<E>::cases[i].value;
    }
    return values;
}
