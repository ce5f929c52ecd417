#pragma once

#include "shell/settings/views/StyleCataloguePage.h"

class AIReplyStyleEditorCard;
class GlobalHotkeySuspension;

// The AI Reply page: every reply style as an editable card, under a hint on how replies are asked for.
class AIReplySettingsView : public StyleCataloguePage {
    Q_OBJECT
public:
    AIReplySettingsView(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    GlobalHotkeySuspension* m_hotkeys;
    QList<AIReplyStyleEditorCard*> m_styleCards;
};
