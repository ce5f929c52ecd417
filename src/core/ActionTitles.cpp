#include "core/ActionTitles.h"

namespace {

struct StyleTitle {
    const char* id;
    const char* english;
    const char* russian;
};

constexpr StyleTitle styleTitles[] = {
    {"original", "Fix", "Исправить"},
    {"friendly", "Friendly", "Дружелюбно"},
    {"emoji", "Emojis", "Смайлики"},
    {"polite", "Polite", "Вежливо"},
    {"professional", "Professional", "Профессионально"},
    {"short", "Short", "Кратко"},
    {"detailed", "Detailed", "Подробно"},
    {"humor", "Humor", "С юмором"},
    {"flirt", "Flirt", "Флирт"},
    {"romantic", "Romantic", "Романтично"},
    {"sexy", "Sexy", "Сексуально"},
    {"formal", "Formal", "Официально"},
    {"casual", "Casual", "Неформально"},
    {"support", "Support", "Поддержка"},
    {"expert", "Expert", "Эксперт"},
    {"social", "Social Media", "Соцсети"},
    {"translate", "Translate", "Перевод"},
};

} // namespace

QString actionTitle(const QuickAction& action, const QList<PromptStyle>& promptStyles, UiLanguage language)
{
    if (action.id == u"ai") {
        return localized(language, "AI assistant", "AI помощник");
    }
    if (action.id == u"clipboard") {
        return localized(language, "Clipboard", "Буфер");
    }
    if (action.id == u"layout") {
        return localized(language, "Layout", "Раскладка");
    }
    const auto styleId = action.styleId();
    if (!styleId) {
        return action.title();
    }
    if (*styleId == u"translate") {
        return localized(language, "Translate", "Перевод");
    }
    for (const auto& style : promptStyles) {
        if (style.id == *styleId) {
            return styleTitle(style, language);
        }
    }
    return action.title();
}

QString styleTitle(const PromptStyle& style, UiLanguage language)
{
    for (const auto& entry : styleTitles) {
        if (style.id == QLatin1String(entry.id)) {
            return localized(language, entry.english, entry.russian);
        }
    }
    return style.name;
}
