#include "shell/ResidentPanels.h"

#include "clipboard/ClipboardPanelController.h"

void ResidentPanels::toggleQuickPanel() {}

void ResidentPanels::toggleClipboardPanel()
{
    if (m_clipboardPanel != nullptr) {
        m_clipboardPanel->toggle();
    }
}

void ResidentPanels::showAssistant(const QString&) {}

void ResidentPanels::showReply(const QString&, const AIReplyStyle&, const QString&) {}

void ResidentPanels::showTranslationPreview() {}
