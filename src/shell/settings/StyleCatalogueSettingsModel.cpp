#include "shell/settings/StyleCatalogueSettingsModel.h"

#include "core/AIReplyStyleLibrary.h"
#include "core/MivoraAppState.h"
#include "core/MivoraPromptLibrary.h"

void StyleCatalogueSettingsModel::resetPromptStyles()
{
    MivoraSettings settings = m_appState.settings();
    settings.promptStyles = MivoraPromptLibrary::builtInStyles();
    m_appState.setSettings(std::move(settings));
}

void StyleCatalogueSettingsModel::resetAIReplyStyles()
{
    MivoraSettings settings = m_appState.settings();
    settings.aiReplyStyles = AIReplyStyleLibrary::builtInStyles();
    m_appState.setSettings(std::move(settings));
}

QString StyleCatalogueSettingsModel::replyHint(UiLanguage language, const QString& commandKey,
                                               const QString& optionKey)
{
    return localized(language, "Select a message and use %1 + %2 with a reply-style key.",
                     "Выделите сообщение и нажмите %1 + %2 с клавишей стиля ответа.")
        .arg(commandKey, optionKey);
}
