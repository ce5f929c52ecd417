#pragma once

#include "core/UiLanguage.h"

class MivoraAppState;

// The buttons above the style cards of the Styles and AI Reply pages.
class StyleCatalogueSettingsModel {
public:
    explicit StyleCatalogueSettingsModel(MivoraAppState& appState) : m_appState(appState) {}

    // Puts the built-in rewrite styles back without asking: custom ones go, while the quick menu lists keep
    // their ids, which then name no style. One save.
    void resetPromptStyles();
    // Puts the built-in reply styles back; custom ones go. One save.
    void resetAIReplyStyles();
    // The AI Reply page's hint, naming the platform's keys for Command and Option.
    static QString replyHint(UiLanguage language, const QString& commandKey, const QString& optionKey);

private:
    MivoraAppState& m_appState;
};
