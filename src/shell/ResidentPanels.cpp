#include "shell/ResidentPanels.h"

void ResidentPanels::toggleQuickPanel()
{
    if (m_toggleQuickPanel) {
        m_toggleQuickPanel();
    }
}

void ResidentPanels::toggleClipboardPanel() {}

void ResidentPanels::showAssistant(const QString&) {}

void ResidentPanels::showReply(const QString&, const AIReplyStyle&, const QString&) {}

void ResidentPanels::showTranslationPreview() {}
