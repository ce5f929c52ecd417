#pragma once

#include "core/Clock.h"
#include "core/PasteboardTiming.h"
#include "exchange/AIReplyEditorState.h"
#include "exchange/PasteboardServiceError.h"
#include "exchange/PasteboardUseQueue.h"
#include "platform/PasteboardSnapshot.h"

#include <QString>
#include <optional>
#include <qcoro/qcorotask.h>

class AccessibilityTextReader;
class ApplicationWorkspace;
class ClipboardCaptureControl;
class FocusService;
class ModifierKeyState;
class Pasteboard;
class PermissionProbe;
class SyntheticKeyboard;

// The clipboard routes into and out of other applications: copy the selection out with a synthetic copy
// shortcut and put the clipboard back, paste results in with a synthetic paste shortcut. Every use of the
// clipboard is bracketed by capture suppression and its end, so the history never sees it. GUI thread; the
// coroutines suspend at every wait. Transient uses take turns: one that starts while another is under way
// waits for its end, so every snapshot is of the user's clipboard.
class PasteboardService {
public:
    struct Services {
        Clock& clock;
        Pasteboard& pasteboard;
        ClipboardCaptureControl& capture;
        FocusService& focus;
        AccessibilityTextReader& reader;
        ApplicationWorkspace& workspace;
        SyntheticKeyboard& keyboard;
        ModifierKeyState& modifiers;
        PermissionProbe& permissions;
    };

    explicit PasteboardService(Services services) : m_services(services) {}

    // Copies the selection out of the remembered application and returns it untrimmed, with the clipboard
    // restored. Throws PasteboardServiceError: emptySelection or copyEventFailed.
    QCoro::Task<QString> readSelectedTextTransient(bool selectAllBeforeCopy, bool includeFocusedTextFallback,
                                                   PasteboardTiming timing);
    // Pastes text into the given (or the remembered) application and restores the clipboard unless someone
    // copied meanwhile. Throws PasteboardServiceError: emptyText, pasteTargetUnavailable, pasteEventFailed.
    QCoro::Task<> pasteTransient(QString text, std::optional<QString> targetBundleIdentifier,
                                 PasteboardTiming timing);
    // Pastes into the message box of a chat application and checks that the box changed. Throws
    // PasteboardServiceError: emptyText, pasteTargetUnavailable, pasteEditorUnavailable, pasteEventFailed,
    // pasteNotApplied.
    QCoro::Task<> pasteAIReply(QString text, qint32 targetProcessIdentifier);
    // Sets the focused selection through accessibility; false when that is not possible (then paste).
    QCoro::Task<bool> replaceSelectedTextViaAccessibility(QString text);

    // Posts the primary modifier plus the key (a macOS virtual key code), 20 ms between press and release.
    // Throws missingAccessibilityPermission or pasteEventFailed.
    QCoro::Task<> sendShortcut(quint16 virtualKey);
    // Returns once no modifier is held, or after 16 waits of 35 ms; never fails.
    QCoro::Task<> waitForModifierKeysToClear();
    // Polls the clipboard every 2 ms until it holds non-blank text or the time is up; returns what it read.
    QCoro::Task<QString> waitForCopiedText(int upToMilliseconds);

    static constexpr Clock::Duration captureSuppression{3500};
    static constexpr quint16 keyA = 0;
    static constexpr quint16 keyC = 8;
    static constexpr quint16 keyV = 9;

private:
    QCoro::Task<QString> copySelection(bool selectAllBeforeCopy, PasteboardTiming timing);
    QCoro::Task<> sendShortcutReportingAs(quint16 virtualKey, PasteboardServiceError::Kind failure);
    QCoro::Task<> pasteReply(QString text, qint32 targetProcessIdentifier);
    QCoro::Task<bool> waitForTargetActivation(qint32 processIdentifier);
    QCoro::Task<bool> waitForAIReplyEditorFocus(qint32 processIdentifier);
    QCoro::Task<bool> waitForAIReplyPasteConfirmation(std::optional<AIReplyEditorState> before);
    // The reply editor's content now, or nullopt when there is no editor.
    std::optional<AIReplyEditorState> replyEditorState();
    // Brings the remembered application forward; true when it is in front or the request could be made.
    bool activateRememberedTarget();
    QCoro::Task<QString> clipboardString();
    void writeClipboard(const QString& text);
    // Puts the snapshot back unless someone replaced the text on the clipboard meanwhile (or cleared it).
    QCoro::Task<> restoreUnlessReplaced(PasteboardSnapshot snapshot, QString text);

    Services m_services;
    PasteboardUseQueue m_uses;
};
