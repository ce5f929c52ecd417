#pragma once

#include "TestClock.h"
#include "core/MivoraError.h"
#include "core/TextExchange.h"

#include <QStringList>
#include <optional>

// Scripted exchange with the "other application": each call is recorded, may take virtual time, and may
// fail with a given text.
class FakeTextExchange : public TextExchange {
public:
    struct ReadCall {
        bool selectAllBeforeCopy;
        bool includeFocusedTextFallback;
        PasteboardTiming timing;
    };
    struct PasteCall {
        QString text;
        std::optional<QString> target;
        PasteboardTiming timing;
    };

    explicit FakeTextExchange(TestClock& clock) : m_clock(clock) {}

    QString accessibleSelection;
    QString selection;
    std::optional<QString> readError;
    std::optional<QString> pasteError;
    bool replaceSucceeds = true;
    std::chrono::milliseconds readDuration{0};
    std::chrono::milliseconds pasteDuration{0};

    QList<ReadCall> reads;
    QList<PasteCall> pastes;
    QStringList replacements;

    // A copy: QCoro moves from an lvalue in co_return, which would empty the member.
    QCoro::Task<QString> selectedTextForLayout() override { co_return QString(accessibleSelection); }

    QCoro::Task<QString> readSelectedTextTransient(bool selectAllBeforeCopy, bool includeFocusedTextFallback,
                                                   PasteboardTiming timing) override
    {
        reads.append({selectAllBeforeCopy, includeFocusedTextFallback, timing});
        if (readDuration.count() > 0) {
            co_await m_clock.sleep(readDuration);
        }
        if (readError) {
            throw MivoraError(*readError);
        }
        // WORKAROUND: QCoro 0.8 moves from any lvalue given to co_return, which would empty the member.
        co_return QString(selection);
    }

    QCoro::Task<> pasteTransient(QString text, std::optional<QString> target,
                                 PasteboardTiming timing) override
    {
        pastes.append({text, target, timing});
        if (pasteDuration.count() > 0) {
            co_await m_clock.sleep(pasteDuration);
        }
        if (pasteError) {
            throw MivoraError(*pasteError);
        }
    }

    QCoro::Task<bool> replaceSelectedTextViaAccessibility(QString text) override
    {
        replacements.append(text);
        co_return replaceSucceeds;
    }

private:
    TestClock& m_clock;
};
