#pragma once

#include "exchange/AccessibilityAttributes.h"
#include "platform/ApplicationWorkspace.h"

#include <QStringList>
#include <optional>

// Remembers which other application the user last worked in, with its focused window, brings it back on
// demand, and finds the message box of a chat application for the AI-reply paste. GUI thread only; nothing
// here throws, failed accessibility calls just make the search move on.
class FocusService {
public:
    // Starts following application activations at once; the workspace and tree must outlive the service.
    FocusService(ApplicationWorkspace& workspace, AccessibilityTree& tree);
    FocusService(const FocusService&) = delete;
    FocusService& operator=(const FocusService&) = delete;

    const std::optional<QString>& rememberedBundleIdentifier() const { return m_rememberedBundleIdentifier; }
    std::optional<qint32> rememberedProcessIdentifier() const { return m_rememberedProcessIdentifier; }
    const AccessibilityElement& rememberedWindow() const { return m_rememberedWindow; }
    // The desktop's window that was in front when the application was remembered, or 0.
    ApplicationWorkspace::WindowIdentifier rememberedDesktopWindow() const
    {
        return m_rememberedDesktopWindow;
    }
    const AccessibilityElement& replyEditor() const { return m_replyEditor; }
    std::optional<qint32> restoringProcessIdentifier() const { return m_restoringProcessIdentifier; }

    // Brings the first running application with this identifier forward; true when it is in front already
    // or the request could be made.
    bool activate(const QString& bundleIdentifier);
    // Brings the process forward with the window it was remembered with (any of its windows when it is not
    // the remembered one); true when the request could be made.
    bool activate(qint32 processIdentifier);
    // Raises the guard against taking the paste target's activation for a change of target, and brings the
    // target forward. False (and the guard lowered) when it cannot be had.
    bool beginAIReplyPaste(qint32 processIdentifier);
    // Lowers the guard and forgets the editor; the end of every AI-reply paste.
    void endAIReplyPaste();
    // Focuses the best message box of the remembered window; on true, replyEditor() holds it.
    bool focusAIReplyEditor(qint32 processIdentifier);
    std::optional<RunningApplication> runningApplication(qint32 processIdentifier);
    // The activation observer's work: takes the application as the target unless it is this program or the
    // AI-reply paste is bringing it forward.
    void remember(const RunningApplication& application);

    // Editor search, in the order the reply paste needs it.
    QList<AccessibilityElement> editableElements(const AccessibilityElement& window);
    QList<AccessibilityElement> webAreas(const AccessibilityElement& root);
    QList<AccessibilityElement> searchEditableElements(const AccessibilityElement& webArea);
    bool isEditableElement(const AccessibilityElement& element, const QString& role);
    AccessibilityElement editableAncestor(const AccessibilityElement& start);
    bool isInsideWebContent(const AccessibilityElement& element);
    // Higher is a likelier message box: low on the screen, wide, a text area, empty.
    double score(const AccessibilityElement& element);
    bool focus(const AccessibilityElement& element, const AccessibilityElement& application);
    bool isActuallyFocused(const AccessibilityElement& element, const AccessibilityElement& application);

    // Walk bounds.
    static constexpr int webAreaWalkLimit = 2000;
    static constexpr int fullWalkLimit = 30000;
    static constexpr int searchResultsLimit = 100;
    static constexpr int editableAncestorLimit = 16;
    static constexpr int webContentAncestorLimit = 64;

private:
    bool passesSizeFilter(const AccessibilityElement& element);
    AccessibilityElement preferredElement(const QList<AccessibilityElement>& elements);
    bool focusAsReplyEditor(const AccessibilityElement& element, const AccessibilityElement& application);

    ApplicationWorkspace& m_workspace;
    AccessibilityAttributes m_attributes;

    std::optional<QString> m_rememberedBundleIdentifier;
    std::optional<qint32> m_rememberedProcessIdentifier;
    AccessibilityElement m_rememberedWindow;
    ApplicationWorkspace::WindowIdentifier m_rememberedDesktopWindow = 0;
    AccessibilityElement m_replyEditor;
    std::optional<qint32> m_restoringProcessIdentifier;
    ListenerSubscription m_activations;
};
