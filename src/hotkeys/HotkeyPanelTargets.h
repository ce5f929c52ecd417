#pragma once

#include "core/AIReplyStyle.h"

#include <QString>

// The panels a hotkey or the quick panel can open. GUI thread; each call returns at once.
class HotkeyPanelTargets {
public:
    virtual ~HotkeyPanelTargets() = default;

    // Shows the quick panel, or hides it when it is visible.
    virtual void toggleQuickPanel() = 0;
    // Shows the clipboard window, or hides it when it is visible.
    virtual void toggleClipboardPanel() = 0;
    // Shows the clipboard window; a visible one stays shown.
    virtual void showClipboardPanel() = 0;
    // Opens the assistant with the selection (possibly empty) as its context.
    virtual void showAssistant(const QString& context) = 0;
    // Opens the assistant drafting a reply to message in the style.
    virtual void showReply(const QString& message, const AIReplyStyle& style,
                           const QString& targetLanguage) = 0;
    // Opens the translation preview of the current selection.
    virtual void showTranslationPreview() = 0;
};
