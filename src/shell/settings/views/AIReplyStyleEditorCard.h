#pragma once

#include "core/AIReplyStyle.h"
#include "shell/settings/views/StyleCardFields.h"

class MivoraAppState;

// One reply style on the AI Reply page; every edit goes to updateAIReplyStyle with the changed copy.
class AIReplyStyleEditorCard : public StyleCardFields {
    Q_OBJECT
public:
    AIReplyStyleEditorCard(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys,
                           QWidget* parent = nullptr);

    void setStyle(const AIReplyStyle& style);
    const QString& styleId() const { return m_style.id; }

private:
    MivoraAppState& m_appState;
    AIReplyStyle m_style;
};
