#include "exchange/PasteboardService.h"

#include "core/ClipboardCaptureControl.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "platform/ApplicationWorkspace.h"
#include "platform/ModifierKeyState.h"
#include "platform/Pasteboard.h"
#include "platform/PermissionProbe.h"
#include "platform/SyntheticKeyboard.h"

#include <exception>

using namespace std::chrono_literals;
using Kind = PasteboardServiceError::Kind;

namespace {
bool isBlank(const QString& text)
{
    return text.trimmed().isEmpty();
}
} // namespace

QCoro::Task<QString> PasteboardService::clipboardString()
{
    const std::optional<QString> text = co_await m_services.pasteboard.string();
    co_return text.value_or(QString());
}

void PasteboardService::writeClipboard(const QString& text)
{
    m_services.pasteboard.clear();
    m_services.pasteboard.writeString(text);
}

bool PasteboardService::activateRememberedTarget()
{
    FocusService& focus = m_services.focus;
    if (const std::optional<qint32> processIdentifier = focus.rememberedProcessIdentifier()) {
        if (const std::optional<RunningApplication> application =
                focus.runningApplication(*processIdentifier)) {
            return application->isActive || focus.activate(*processIdentifier);
        }
    }
    if (const std::optional<QString>& bundleIdentifier = focus.rememberedBundleIdentifier()) {
        return focus.activate(*bundleIdentifier);
    }
    return false;
}

QCoro::Task<QString> PasteboardService::readSelectedTextTransient(bool selectAllBeforeCopy,
                                                                  bool includeFocusedTextFallback,
                                                                  PasteboardTiming timing)
{
    const PasteboardUseQueue::Turn turn = co_await m_uses.waitForTurn();
    m_services.capture.suppressCapture(captureSuppression);
    const PasteboardSnapshot snapshot = co_await m_services.pasteboard.snapshot();
    // Failing to bring the target forward is no error here: the copy may still reach it.
    activateRememberedTarget();

    QString text;
    try {
        text = co_await copySelection(selectAllBeforeCopy, timing);
    } catch (...) {
        m_services.pasteboard.restore(snapshot);
        m_services.capture.finishTransientPasteboardUse();
        throw;
    }
    // The user's clipboard is back before anyone looks at the result.
    m_services.pasteboard.restore(snapshot);
    m_services.capture.finishTransientPasteboardUse();

    if (!isBlank(text)) {
        co_return text;
    }
    if (!includeFocusedTextFallback) {
        throw PasteboardServiceError(Kind::emptySelection);
    }
    const QString focused = m_services.reader.focusedText();
    if (isBlank(focused)) {
        throw PasteboardServiceError(Kind::emptySelection);
    }
    co_return focused;
}

QCoro::Task<QString> PasteboardService::copySelection(bool selectAllBeforeCopy, PasteboardTiming timing)
{
    co_await m_services.clock.sleep(PasteboardTiming::ms(timing.activationDelay));
    if (selectAllBeforeCopy) {
        if (timing.waitsForModifierKeys) {
            co_await waitForModifierKeysToClear();
        }
        co_await sendShortcutReportingAs(keyA, Kind::copyEventFailed);
        co_await m_services.clock.sleep(PasteboardTiming::ms(timing.selectAllDelay));
    }
    QString text;
    for (int attempt = 0; attempt < 3; ++attempt) {
        m_services.pasteboard.clear();
        if (timing.waitsForModifierKeys) {
            co_await waitForModifierKeysToClear();
        }
        co_await sendShortcutReportingAs(keyC, Kind::copyEventFailed);
        if (timing.copyDelay == 0) {
            text = co_await waitForCopiedText(120);
        } else {
            // Slow applications get longer on each attempt.
            co_await m_services.clock.sleep(
                PasteboardTiming::ms(timing.copyDelay + attempt * timing.copyDelayStep));
            text = co_await clipboardString();
        }
        if (!isBlank(text)) {
            break;
        }
    }
    co_return text;
}

QCoro::Task<> PasteboardService::pasteTransient(QString text, std::optional<QString> targetBundleIdentifier,
                                                PasteboardTiming timing)
{
    if (text.isEmpty()) {
        throw PasteboardServiceError(Kind::emptyText);
    }
    const PasteboardUseQueue::Turn turn = co_await m_uses.waitForTurn();
    m_services.capture.suppressCapture(captureSuppression);
    const PasteboardSnapshot snapshot = co_await m_services.pasteboard.snapshot();
    const bool activated = targetBundleIdentifier ? m_services.focus.activate(*targetBundleIdentifier)
                                                  : activateRememberedTarget();
    if (!activated) {
        m_services.capture.finishTransientPasteboardUse();
        throw PasteboardServiceError(Kind::pasteTargetUnavailable);
    }
    co_await m_services.clock.sleep(PasteboardTiming::ms(timing.activationDelay));
    writeClipboard(text);
    // From here a failure leaves the text on the clipboard, where the user can still paste it by hand; the
    // capture suppression simply runs out.
    co_await m_services.clock.sleep(PasteboardTiming::ms(timing.pasteDelay));
    if (timing.waitsForModifierKeys) {
        co_await waitForModifierKeysToClear();
    }
    co_await sendShortcutReportingAs(keyV, Kind::pasteEventFailed);
    co_await m_services.clock.sleep(PasteboardTiming::ms(timing.restoreDelay));
    // A different text means someone copied in the meantime, and their copy stays.
    co_await restoreUnlessReplaced(snapshot, text);
    m_services.capture.finishTransientPasteboardUse();
}

QCoro::Task<> PasteboardService::restoreUnlessReplaced(PasteboardSnapshot snapshot, QString text)
{
    const std::optional<QString> now = co_await m_services.pasteboard.string();
    if (now && *now == text) {
        m_services.pasteboard.restore(snapshot);
    }
}

QCoro::Task<> PasteboardService::pasteAIReply(QString text, qint32 targetProcessIdentifier)
{
    if (text.isEmpty()) {
        throw PasteboardServiceError(Kind::emptyText);
    }
    const PasteboardUseQueue::Turn turn = co_await m_uses.waitForTurn();
    m_services.capture.suppressCapture(captureSuppression);
    const PasteboardSnapshot snapshot = co_await m_services.pasteboard.snapshot();
    // The same clean-up on success and on every failure; it awaits a read, which a handler cannot.
    std::exception_ptr failure;
    try {
        co_await pasteReply(text, targetProcessIdentifier);
    } catch (...) {
        failure = std::current_exception();
    }
    co_await restoreUnlessReplaced(snapshot, text);
    m_services.focus.endAIReplyPaste();
    m_services.capture.finishTransientPasteboardUse();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

QCoro::Task<> PasteboardService::pasteReply(QString text, qint32 targetProcessIdentifier)
{
    if (!m_services.focus.beginAIReplyPaste(targetProcessIdentifier) ||
        !co_await waitForTargetActivation(targetProcessIdentifier)) {
        throw PasteboardServiceError(Kind::pasteTargetUnavailable);
    }
    if (!co_await waitForAIReplyEditorFocus(targetProcessIdentifier)) {
        throw PasteboardServiceError(Kind::pasteEditorUnavailable);
    }
    const std::optional<AIReplyEditorState> before = replyEditorState();
    writeClipboard(text);
    co_await waitForModifierKeysToClear();
    co_await sendShortcutReportingAs(keyV, Kind::pasteEventFailed);
    if (!co_await waitForAIReplyPasteConfirmation(before)) {
        throw PasteboardServiceError(Kind::pasteNotApplied);
    }
}

QCoro::Task<bool> PasteboardService::waitForTargetActivation(qint32 processIdentifier)
{
    for (int round = 0; round < 45; ++round) {
        const std::optional<RunningApplication> application =
            m_services.focus.runningApplication(processIdentifier);
        if (application && application->isActive) {
            co_return true;
        }
        co_await m_services.clock.sleep(20ms);
    }
    co_return false;
}

QCoro::Task<bool> PasteboardService::waitForAIReplyEditorFocus(qint32 processIdentifier)
{
    for (int round = 0; round < 16; ++round) {
        if (m_services.focus.focusAIReplyEditor(processIdentifier)) {
            co_return true;
        }
        co_await m_services.clock.sleep(25ms);
    }
    co_return false;
}

std::optional<AIReplyEditorState> PasteboardService::replyEditorState()
{
    const AccessibilityElement& editor = m_services.focus.replyEditor();
    if (editor.isNull()) {
        return std::nullopt;
    }
    AIReplyEditorState state;
    state.value = m_services.reader.stringAttribute(editor, QStringLiteral("AXValue"));
    if (const std::optional<double> count =
            m_services.reader.numberAttribute(editor, QStringLiteral("AXNumberOfCharacters"))) {
        state.numberOfCharacters = qint64(*count);
    }
    return state;
}

QCoro::Task<bool> PasteboardService::waitForAIReplyPasteConfirmation(std::optional<AIReplyEditorState> before)
{
    // Without a reading to compare with, nothing could ever confirm the paste.
    if (!before || before->isEmpty()) {
        co_return false;
    }
    for (int round = 0; round < 60; ++round) {
        if (const std::optional<AIReplyEditorState> now = replyEditorState();
            now && now->showsChangeSince(*before)) {
            co_return true;
        }
        co_await m_services.clock.sleep(20ms);
    }
    co_return false;
}

QCoro::Task<bool> PasteboardService::replaceSelectedTextViaAccessibility(QString text)
{
    if (text.isEmpty()) {
        co_return false;
    }
    co_return m_services.reader.replaceSelectedText(text);
}

QCoro::Task<> PasteboardService::sendShortcutReportingAs(quint16 virtualKey,
                                                         PasteboardServiceError::Kind failure)
{
    try {
        co_await sendShortcut(virtualKey);
    } catch (const PasteboardServiceError&) {
        throw PasteboardServiceError(failure);
    }
}

QCoro::Task<> PasteboardService::sendShortcut(quint16 virtualKey)
{
    if (!m_services.permissions.isAccessibilityGranted()) {
        throw PasteboardServiceError(Kind::missingAccessibilityPermission);
    }
    if (!m_services.keyboard.pressShortcut(virtualKey)) {
        throw PasteboardServiceError(Kind::pasteEventFailed);
    }
    co_await m_services.clock.sleep(20ms);
    if (!m_services.keyboard.releaseShortcut(virtualKey)) {
        throw PasteboardServiceError(Kind::pasteEventFailed);
    }
}

QCoro::Task<> PasteboardService::waitForModifierKeysToClear()
{
    for (int waits = 0; m_services.modifiers.isAnyModifierHeld();) {
        co_await m_services.clock.sleep(35ms);
        // A key held longer than 16 waits is simply ignored.
        if (++waits == 16) {
            co_return;
        }
    }
}

QCoro::Task<QString> PasteboardService::waitForCopiedText(int upToMilliseconds)
{
    const Clock::Duration deadline = m_services.clock.elapsed() + Clock::Duration(upToMilliseconds);
    while (true) {
        const QString text = co_await clipboardString();
        if (!isBlank(text) || m_services.clock.elapsed() > deadline) {
            co_return text;
        }
        co_await m_services.clock.sleep(2ms);
    }
}
