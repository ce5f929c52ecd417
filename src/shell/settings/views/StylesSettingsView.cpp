#include "shell/settings/views/StylesSettingsView.h"

#include "core/MivoraAppState.h"
#include "shell/settings/views/StyleEditorCard.h"

#include <QLabel>
#include <QPushButton>

StylesSettingsView::StylesSettingsView(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys,
                                       QWidget* parent)
    : StyleCataloguePage(appState, parent), m_hotkeys(hotkeys)
{
    connect(m_reset, &QPushButton::clicked, this, [this] { m_model.resetPromptStyles(); });
    connect(m_add, &QPushButton::clicked, this, [this] { m_appState.addPromptStyle(); });
    followState();
}

void StylesSettingsView::refresh()
{
    m_heading->setText(localized(language(), "Prompt styles", "Стили"));
    m_reset->setText(localized(language(), "Reset", "Сбросить"));
    m_add->setText(localized(language(), "+ Add", "+ Добавить"));
    syncCards(m_styleCards, m_appState.promptStyles(),
              [this] { return new StyleEditorCard(m_appState, m_hotkeys, this); });
}
