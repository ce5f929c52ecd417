#pragma once

#include "core/EnumTable.h"

enum class UiLanguage { en, ru };

template <> struct EnumTable<UiLanguage> {
    static constexpr std::array cases{
        EnumCase<UiLanguage>{UiLanguage::en, "en", "English", "Английский"},
        EnumCase<UiLanguage>{UiLanguage::ru, "ru", "Russian", "Русский"},
    };
};

// Texts sit side by side where they are used; this picks one by the interface language of the moment.
inline QString localized(UiLanguage language, const char* english, const char* russian)
{
    return QString::fromUtf8(language == UiLanguage::ru ? russian : english);
}

template <typename E> QString title(E value, UiLanguage language)
{
    const auto& c = enumCase(value);
    return localized(language, c.english, c.russian);
}
