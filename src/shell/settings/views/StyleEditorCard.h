#pragma once

#include "core/PromptStyle.h"
#include "shell/settings/views/StyleCardFields.h"

class MivoraAppState;

// One rewrite style on the Styles page; every edit goes to updatePromptStyle with the changed copy.
class StyleEditorCard : public StyleCardFields {
    Q_OBJECT
public:
    StyleEditorCard(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys, QWidget* parent = nullptr);

    void setStyle(const PromptStyle& style);
    const QString& styleId() const { return m_style.id; }

private:
    MivoraAppState& m_appState;
    PromptStyle m_style;
};
