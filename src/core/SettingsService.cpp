#include "core/SettingsService.h"

#include "core/NativeSettingsStore.h"

#include <QUuid>

namespace {

QList<QuickAction> normalizedActions(const QStringList& ids)
{
    QList<QuickAction> actions;
    actions.reserve(ids.size());
    for (const auto& id : ids) {
        actions.append(QuickAction(QuickAction::normalize(id)));
    }
    return actions;
}

// Eight lower-case characters of a fresh UUID: short enough to read, unique enough for one user's styles.
QString freshIdSuffix()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).left(8).toLower();
}

template <typename Style> bool replaceById(QList<Style>& styles, const Style& style)
{
    for (auto& existing : styles) {
        if (existing.id == style.id) {
            existing = style;
            return true;
        }
    }
    return false;
}

} // namespace

SettingsService::SettingsService(NativeSettingsStore& store, QObject* parent)
    : QObject(parent), m_store(store), m_settings(store.load()),
      m_quickActions(normalizedActions(m_settings.quickMenuActions)), m_promptStyles(m_settings.promptStyles),
      m_aiReplyStyles(m_settings.aiReplyStyles), m_targetLanguage(m_settings.targetLanguage)
{}

void SettingsService::assign(MivoraSettings settings)
{
    m_settings = std::move(settings);
    m_store.save(m_settings);
    m_promptStyles = m_settings.promptStyles;
    m_aiReplyStyles = m_settings.aiReplyStyles;
    m_quickActions = normalizedActions(m_settings.quickMenuActions);
    m_targetLanguage = m_settings.targetLanguage;
    emit changed();
}

void SettingsService::addPromptStyle()
{
    const QString id = QStringLiteral("custom-") + freshIdSuffix();
    const UiLanguage language = m_settings.uiLanguage;
    MivoraSettings next = m_settings;
    next.promptStyles.append(PromptStyle{
        id, localized(language, "New Style", "Новый стиль"),
        localized(
            language,
            "Rewrite the text in the requested style. Preserve the meaning and return only the final text.",
            "Перепиши текст в нужном стиле. Сохрани смысл и верни только готовый текст."),
        QStringLiteral("Not assigned"), true});
    const QString actionId = QStringLiteral("style:") + id;
    if (!next.quickMenuOrder.contains(actionId)) {
        next.quickMenuOrder.append(actionId);
    }
    if (!next.quickMenuActions.contains(actionId)) {
        next.quickMenuActions.append(actionId);
    }
    assign(std::move(next));
}

void SettingsService::deletePromptStyle(const PromptStyle& style)
{
    if (MivoraPromptLibrary::builtInStyleIds().contains(style.id)) {
        return;
    }
    const QString actionId = QStringLiteral("style:") + style.id;
    const auto isThisStyle = [&](const QString& id) { return QuickAction::normalize(id) == actionId; };
    MivoraSettings next = m_settings;
    next.promptStyles.removeIf([&](const PromptStyle& s) { return s.id == style.id; });
    next.quickMenuActions.removeIf(isThisStyle);
    next.quickMenuOrder.removeIf(isThisStyle);
    assign(std::move(next));
}

void SettingsService::updatePromptStyle(const PromptStyle& style)
{
    MivoraSettings next = m_settings;
    if (replaceById(next.promptStyles, style)) {
        assign(std::move(next));
    }
}

void SettingsService::addAIReplyStyle()
{
    const UiLanguage language = m_settings.uiLanguage;
    MivoraSettings next = m_settings;
    next.aiReplyStyles.append(AIReplyStyle{
        QStringLiteral("custom-reply-") + freshIdSuffix(),
        localized(language, "New Reply Style", "Новый стиль ответа"),
        localized(language,
                  "Write a natural ready-to-send reply in the requested style. Return only the reply text.",
                  "Напиши естественный готовый ответ в нужном стиле. Верни только текст ответа."),
        QStringLiteral("Not assigned")});
    assign(std::move(next));
}

void SettingsService::deleteAIReplyStyle(const AIReplyStyle& style)
{
    if (AIReplyStyleLibrary::builtInStyleIds().contains(style.id)) {
        return;
    }
    MivoraSettings next = m_settings;
    next.aiReplyStyles.removeIf([&](const AIReplyStyle& s) { return s.id == style.id; });
    assign(std::move(next));
}

void SettingsService::updateAIReplyStyle(const AIReplyStyle& style)
{
    MivoraSettings next = m_settings;
    if (replaceById(next.aiReplyStyles, style)) {
        assign(std::move(next));
    }
}
