#include "shell/settings/views/AIReplyStyleEditorCard.h"

#include "core/MivoraAppState.h"

AIReplyStyleEditorCard::AIReplyStyleEditorCard(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys,
                                               QWidget* parent)
    : StyleCardFields(hotkeys, 140, false, parent), m_appState(appState)
{
    connect(this, &StyleCardFields::edited, this, [this] {
        AIReplyStyle changed = m_style;
        changed.name = name();
        changed.hotkey = hotkey();
        changed.prompt = prompt();
        m_style = changed;
        m_appState.updateAIReplyStyle(changed);
    });
    connect(this, &StyleCardFields::deleteRequested, this,
            [this] { m_appState.deleteAIReplyStyle(m_style); });
}

void AIReplyStyleEditorCard::setStyle(const AIReplyStyle& style)
{
    m_style = style;
    setFields(style.name, style.hotkey, false, style.prompt);
}
