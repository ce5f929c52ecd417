#pragma once

#include "core/PasteboardTiming.h"

#include <QString>
#include <optional>
#include <qcoro/qcorotask.h>

// How the action runner gets text out of the application the user works in and puts results back.
class TextExchange {
public:
    virtual ~TextExchange() = default;

    // The focused selection read without sending keys or touching the clipboard (accessibility, or the
    // selection the windowing system keeps); empty when there is none. GUI thread; suspends.
    virtual QCoro::Task<QString> selectedTextForLayout() = 0;
    // Copies the selection out of the frontmost application, restoring the clipboard afterwards. GUI thread;
    // suspends. Throws MivoraError with the user-facing text.
    virtual QCoro::Task<QString> readSelectedTextTransient(bool selectAllBeforeCopy,
                                                           bool includeFocusedTextFallback,
                                                           PasteboardTiming timing) = 0;
    // Pastes text into the frontmost (or the given) application through the clipboard, restoring it after.
    // GUI thread; suspends. Throws MivoraError with the user-facing text.
    virtual QCoro::Task<> pasteTransient(QString text, std::optional<QString> targetBundleIdentifier,
                                         PasteboardTiming timing) = 0;
    // Replaces the focused selection through accessibility; false when that is not possible. GUI thread.
    virtual QCoro::Task<bool> replaceSelectedTextViaAccessibility(QString text) = 0;
};
