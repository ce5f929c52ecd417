#pragma once

#include "exchange/AccessibilityAttributes.h"

class ApplicationWorkspace;
class FocusService;

// The accessibility route to the selection of the application FocusService remembers. GUI thread; a failed
// accessibility call gives empty, never an error.
class AccessibilityTextReader {
public:
    AccessibilityTextReader(FocusService& focus, ApplicationWorkspace& workspace, AccessibilityTree& tree);

    // The focused element's AXSelectedText; empty when there is none.
    QString selectedText();
    // The same, but empty for browser content, whose selection only the copy route reads reliably.
    QString selectedTextForLayout();
    // AXSelectedText, and only when that attribute is absent, AXValue.
    QString focusedText();
    // The focused element of the remembered process, or null.
    AccessibilityElement focusedElement();
    // Whether the element lies in browser-rendered content, where setting AXSelectedText cannot be trusted.
    bool requiresPasteFallback(const AccessibilityElement& element);
    std::optional<QString> stringAttribute(const AccessibilityElement& element, const QString& name);
    std::optional<double> numberAttribute(const AccessibilityElement& element, const QString& name);
    // Sets the focused selection to text; true when the application accepted the call.
    bool replaceSelectedText(const QString& text);

    static constexpr int pasteFallbackAncestorLimit = 32;

private:
    // The focused element of the running application with the remembered bundle identifier, or null.
    AccessibilityElement focusedElementOfRememberedBundle();

    FocusService& m_focus;
    ApplicationWorkspace& m_workspace;
    AccessibilityAttributes m_attributes;
};
