#pragma once

#include "hotkeys/HotkeyPanelTargets.h"

#include <functional>

class AssistantPanelController;
class ClipboardPanelController;
class TranslationPreviewPanelController;

// Routes the hotkeys, the tray menu and the main window to the floating panels. Each panel's controller
// joins here as it is made; until then its requests do nothing. GUI thread.
class ResidentPanels : public HotkeyPanelTargets {
public:
    // The quick panel's show-or-hide, once its controller exists.
    void setQuickPanel(std::function<void()> toggle) { m_toggleQuickPanel = std::move(toggle); }
    void setClipboardPanel(ClipboardPanelController* panel) { m_clipboardPanel = panel; }

    void toggleQuickPanel() override;
    void toggleClipboardPanel() override;
    void showClipboardPanel() override;
    void showAssistant(const QString& context) override;
    void showReply(const QString& message, const AIReplyStyle& style, const QString& targetLanguage) override;
    void showTranslationPreview() override;

    // The AI panels; null leaves their requests without effect. Each must outlive this router or be reset.
    void setAssistant(AssistantPanelController* assistant) { m_assistant = assistant; }
    void setTranslationPreview(TranslationPreviewPanelController* preview) { m_translationPreview = preview; }

private:
    std::function<void()> m_toggleQuickPanel;
    ClipboardPanelController* m_clipboardPanel = nullptr;
    AssistantPanelController* m_assistant = nullptr;
    TranslationPreviewPanelController* m_translationPreview = nullptr;
};
