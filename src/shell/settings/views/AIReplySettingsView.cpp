#include "shell/settings/views/AIReplySettingsView.h"

#include "core/MivoraAppState.h"
#include "shell/settings/views/AIReplyStyleEditorCard.h"
#include "shell/settings/views/PlatformKeyNames.h"

#include <QLabel>
#include <QPushButton>

AIReplySettingsView::AIReplySettingsView(MivoraAppState& appState, GlobalHotkeySuspension* hotkeys,
                                         QWidget* parent)
    : StyleCataloguePage(appState, parent), m_hotkeys(hotkeys)
{
    m_hint->show();
    connect(m_reset, &QPushButton::clicked, this, [this] { m_model.resetAIReplyStyles(); });
    connect(m_add, &QPushButton::clicked, this, [this] { m_appState.addAIReplyStyle(); });
    followState();
}

void AIReplySettingsView::refresh()
{
    m_heading->setText(QStringLiteral("AI Reply"));
    const PlatformKeyNames keys = PlatformKeyNames::current();
    m_hint->setText(StyleCatalogueSettingsModel::replyHint(language(), keys.command, keys.option));
    m_reset->setText(localized(language(), "Reset", "Сбросить"));
    m_add->setText(localized(language(), "+ Add", "+ Добавить"));
    syncCards(m_styleCards, m_appState.aiReplyStyles(),
              [this] { return new AIReplyStyleEditorCard(m_appState, m_hotkeys, this); });
}
