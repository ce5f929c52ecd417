#include "shell/settings/views/AIReplySettingsView.h"

#include "core/MivoraAppState.h"
#include "shell/settings/views/AIReplyStyleEditorCard.h"

#include <QGuiApplication>
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
    // Stored hotkeys say Command and Option; elsewhere those are the Super (Windows) key and Alt.
    const bool mac = QGuiApplication::platformName() == QLatin1String("cocoa");
    m_hint->setText(StyleCatalogueSettingsModel::replyHint(
        language(), mac ? QStringLiteral("Command") : QStringLiteral("Super"),
        mac ? QStringLiteral("Option") : QStringLiteral("Alt")));
    m_reset->setText(localized(language(), "Reset", "Сбросить"));
    m_add->setText(localized(language(), "+ Add", "+ Добавить"));
    syncCards(m_styleCards, m_appState.aiReplyStyles(),
              [this] { return new AIReplyStyleEditorCard(m_appState, m_hotkeys, this); });
}
