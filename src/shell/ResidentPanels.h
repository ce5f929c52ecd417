#pragma once

#include "hotkeys/HotkeyPanelTargets.h"

class ClipboardPanelController;

// Routes the hotkeys, the tray menu and the main window to the floating panels. Each panel's controller
// joins here as it is made; until then its requests do nothing. GUI thread.
class ResidentPanels : public HotkeyPanelTargets {
public:
    void setClipboardPanel(ClipboardPanelController* panel) { m_clipboardPanel = panel; }

    void toggleQuickPanel() override;
    void toggleClipboardPanel() override;
    void showAssistant(const QString& context) override;
    void showReply(const QString& message, const AIReplyStyle& style, const QString& targetLanguage) override;
    void showTranslationPreview() override;

private:
    ClipboardPanelController* m_clipboardPanel = nullptr;
};
