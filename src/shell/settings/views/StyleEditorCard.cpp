#include "shell/settings/views/StyleEditorCard.h"

#include "core/MivoraAppState.h"

StyleEditorCard::StyleEditorCard(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys, QWidget* parent)
    : StyleCardFields(hotkeys, 120, true, parent), m_appState(appState)
{
    connect(this, &StyleCardFields::edited, this, [this] {
        PromptStyle changed = m_style;
        changed.name = name();
        changed.hotkey = hotkey();
        changed.autoReplace = autoReplace();
        changed.prompt = prompt();
        m_style = changed;
        m_appState.updatePromptStyle(changed);
    });
    // Built-in styles refuse in the state: the button stays, and does nothing for them.
    connect(this, &StyleCardFields::deleteRequested, this, [this] { m_appState.deletePromptStyle(m_style); });
}

void StyleEditorCard::setStyle(const PromptStyle& style)
{
    m_style = style;
    setFields(style.name, style.hotkey, style.autoReplace, style.prompt);
}
