#pragma once

#include "shell/settings/views/StyleCataloguePage.h"

class GlobalHotkeySuspension;
class StyleEditorCard;

// The Styles page: every rewrite style as an editable card.
class StylesSettingsView : public StyleCataloguePage {
    Q_OBJECT
public:
    StylesSettingsView(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    GlobalHotkeySuspension* m_hotkeys;
    QList<StyleEditorCard*> m_styleCards;
};
