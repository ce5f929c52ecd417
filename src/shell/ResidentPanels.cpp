#include "shell/ResidentPanels.h"

#include "clipboard/ClipboardPanelController.h"
#include "panels/AssistantPanelController.h"
#include "panels/TranslationPreviewPanelController.h"

void ResidentPanels::toggleQuickPanel()
{
    if (m_toggleQuickPanel) {
        m_toggleQuickPanel();
    }
}

void ResidentPanels::toggleClipboardPanel()
{
    if (m_clipboardPanel != nullptr) {
        m_clipboardPanel->toggle();
    }
}

void ResidentPanels::showClipboardPanel()
{
    if (m_clipboardPanel != nullptr) {
        m_clipboardPanel->show();
    }
}

void ResidentPanels::showAssistant(const QString& context)
{
    if (m_assistant != nullptr) {
        m_assistant->show(context);
    }
}

void ResidentPanels::showReply(const QString& message, const AIReplyStyle& style,
                               const QString& targetLanguage)
{
    if (m_assistant != nullptr) {
        m_assistant->showReply(message, style, targetLanguage);
    }
}

void ResidentPanels::showTranslationPreview()
{
    if (m_translationPreview != nullptr) {
        m_translationPreview->showFromSelection();
    }
}
