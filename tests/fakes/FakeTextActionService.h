#pragma once

#include "TestClock.h"
#include "core/MivoraError.h"
#include "core/TextActionService.h"

#include <functional>

// Stands for the AI backend: answers with a function of the input after some virtual time, or fails.
class FakeTextActionService : public TextActionService {
public:
    struct Call {
        QuickAction action;
        QString input;
        QString targetLanguage;
        QList<PromptStyle> styles;
    };

    explicit FakeTextActionService(TestClock& clock) : m_clock(clock) {}

    std::function<QString(const QString&)> answer = [](const QString& input) { return input.toUpper(); };
    std::optional<QString> error;
    std::chrono::milliseconds duration{0};
    QList<Call> calls;

    QCoro::Task<QString> run(QuickAction action, QString input, QString targetLanguage,
                             QList<PromptStyle> styles) override
    {
        calls.append({action, input, targetLanguage, styles});
        if (duration.count() > 0) {
            co_await m_clock.sleep(duration);
        }
        if (error) {
            throw MivoraError(*error);
        }
        co_return answer(input);
    }

private:
    TestClock& m_clock;
};
