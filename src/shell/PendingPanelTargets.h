#pragma once

#include "hotkeys/HotkeyPanelTargets.h"

// Stands in for the panels until they exist: their hotkeys are registered and pressing them does nothing.
class PendingPanelTargets : public HotkeyPanelTargets {
public:
    void toggleQuickPanel() override {}
    void toggleClipboardPanel() override {}
    void showAssistant(const QString&) override {}
    void showReply(const QString&, const AIReplyStyle&, const QString&) override {}
    void showTranslationPreview() override {}
};
