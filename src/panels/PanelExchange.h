#pragma once

#include "core/PasteboardTiming.h"

#include <QString>
#include <optional>
#include <qcoro/qcorotask.h>

// What the AI panels need from the application the user works in and from the clipboard. GUI thread; the
// coroutines suspend and throw MivoraError with the text the user sees.
class PanelExchange {
public:
    virtual ~PanelExchange() = default;

    // Remembers the application in front as the target of later reads and pastes. Non-blocking.
    virtual void rememberFrontmostApplication() = 0;
    // The process of the remembered application, if any. Non-blocking.
    virtual std::optional<qint32> rememberedProcessIdentifier() const = 0;
    // The remembered application's selection read without keys or clipboard; empty when there is none.
    virtual QCoro::Task<QString> quietSelectedText() = 0;
    // Copies the selection out of the remembered application, restoring the clipboard afterwards.
    virtual QCoro::Task<QString> readSelectedTextTransient(bool selectAllBeforeCopy,
                                                           bool includeFocusedTextFallback,
                                                           PasteboardTiming timing) = 0;
    // Pastes into the remembered (or frontmost) application, restoring the clipboard afterwards.
    virtual QCoro::Task<> pasteTransient(QString text, PasteboardTiming timing) = 0;
    // Pastes into the message box of the chat application with this process.
    virtual QCoro::Task<> pasteAIReply(QString text, qint32 targetProcessIdentifier) = 0;
    // Replaces the clipboard with the text; it enters the clipboard history like any copy. Non-blocking.
    virtual void copy(const QString& text) = 0;
    // The clipboard's plain text, or nullopt when there is none.
    virtual QCoro::Task<std::optional<QString>> clipboardText() = 0;
};
