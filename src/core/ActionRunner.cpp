#include "core/ActionRunner.h"

#include "core/ActionTitles.h"
#include "core/MivoraError.h"
#include "core/SettingsService.h"
#include "core/StatusService.h"
#include "core/TextActionService.h"
#include "core/TextExchange.h"
#include "text/KeyboardLayoutService.h"

#include <QPointer>

namespace {

// Actions whose hotkey runs report elsewhere: the assistant and clipboard panels, or nowhere for the fix.
bool isQuietCapable(const QuickAction& action)
{
    return action.id == u"ai" || action.id == u"clipboard" || action.id == u"layout";
}

} // namespace

ActionRunner::ActionRunner(Services services, Texts texts, QObject* parent)
    : QObject(parent), m_services(services), m_texts(std::move(texts))
{}

QCoro::Task<> ActionRunner::run(QuickAction action, bool pasteResult, bool updateSampleText)
{
    const bool quiet = pasteResult && isQuietCapable(action);
    const Run run{std::move(action), pasteResult, updateSampleText, quiet};
    if (!run.quiet) {
        const QString title = actionTitle(run.action, m_services.settings.promptStyles(), language());
        publish(ActionStatus::running(language() == UiLanguage::ru ? QStringLiteral("Выполняю: ") + title
                                                                   : title + QStringLiteral(" running")));
    }

    // Everything below may outlive the runner (the process is quitting); a gone runner ends the run quietly.
    QPointer<ActionRunner> self(this);
    try {
        const Input input = co_await readInput(run);
        if (!self) {
            co_return;
        }
        const QString targetLanguage = m_services.settings.targetLanguage();
        // Deliberately the fixed title with the English word, whatever the interface language.
        publishRunning(run, run.action.title() + QStringLiteral(" running"));
        if (run.action.id == u"layout") {
            co_await layoutRoad(run, input);
        } else {
            co_await backendRoad(run, input.text, targetLanguage);
        }
    } catch (const MivoraError& error) {
        if (self) {
            publish(ActionStatus::failed(error.errorDescription()));
        }
    } catch (const std::exception& error) {
        if (self) {
            publish(ActionStatus::failed(QString::fromUtf8(error.what())));
        }
    }
}

QCoro::Task<ActionRunner::Input> ActionRunner::readInput(const Run& run)
{
    if (!run.pasteResult) {
        co_return Input{m_texts.sampleText()};
    }
    publishRunning(run, localized(language(), "Reading selection", "Читаю выделение"));
    const bool selectAll =
        m_services.settings.settings().autoSelectAllBeforeAction && !isQuietCapable(run.action);
    TextExchange& exchange = m_services.exchange;
    // co_await stays out of braced initialisers: GCC 12 destroys such temporaries twice.
    Input input;
    if (!run.quiet) {
        input.text =
            co_await exchange.readSelectedTextTransient(selectAll, true, PasteboardTiming::standardTiming());
        co_return input;
    }
    // A quiet run tries the accessibility interface first and a quick copy only when that gives nothing.
    const QString accessible = co_await exchange.selectedTextForLayout();
    if (!accessible.trimmed().isEmpty()) {
        input.text = accessible;
        input.readByAccessibility = true;
        co_return input;
    }
    input.text =
        co_await exchange.readSelectedTextTransient(selectAll, false, PasteboardTiming::quickTiming());
    co_return input;
}

QCoro::Task<> ActionRunner::layoutRoad(const Run& run, Input input)
{
    const KeyboardLayoutFixResult result =
        m_services.keyboardLayout.fix(input.text, m_services.settings.settings());
    QString message = result.text;
    if (run.pasteResult) {
        QPointer<ActionRunner> self(this);
        co_await paste(result.text, PasteboardTiming::quickTiming(), input.readByAccessibility);
        if (!self) {
            co_return;
        }
        message = switchLayoutAfterFix(result.targetLayoutName);
    }
    // A fix from a hotkey is quiet: its message is formed and not shown.
    finish(run, result.text, run.quiet ? ActionStatus::idle() : ActionStatus::done(message));
}

QString ActionRunner::switchLayoutAfterFix(const std::optional<QString>& targetLayoutName)
{
    QString message = localized(language(), "Keyboard layout fixed", "Раскладка исправлена");
    if (m_services.settings.settings().layoutAutoSwitch && targetLayoutName) {
        try {
            m_services.keyboardLayout.switchLayout(*targetLayoutName);
            message += QStringLiteral(" · ") + *targetLayoutName;
        } catch (const MivoraError&) {
            // A fix that could not switch the layout still counts as done.
        }
    }
    return message;
}

QCoro::Task<> ActionRunner::backendRoad(const Run& run, QString input, QString targetLanguage)
{
    const QList<PromptStyle> styles = m_services.settings.promptStyles();
    QPointer<ActionRunner> self(this);
    const QString output = co_await m_services.actions.run(run.action, input, targetLanguage, styles);
    if (!self) {
        co_return;
    }
    if (run.pasteResult) {
        publish(ActionStatus::running(localized(language(), "Pasting", "Вставляю")));
        co_await paste(output, PasteboardTiming::standardTiming(), false);
        if (!self) {
            co_return;
        }
    }
    finish(run, output,
           ActionStatus::done(run.pasteResult ? localized(language(), "Pasted", "Вставлено") : output));
}

QCoro::Task<> ActionRunner::paste(QString text, PasteboardTiming timing, bool replaceByAccessibilityFirst)
{
    TextExchange& exchange = m_services.exchange;
    if (replaceByAccessibilityFirst) {
        QPointer<ActionRunner> self(this);
        const bool replaced = co_await exchange.replaceSelectedTextViaAccessibility(text);
        if (replaced || !self) {
            co_return;
        }
    }
    co_await exchange.pasteTransient(text, std::nullopt, timing);
}

void ActionRunner::finish(const Run& run, const QString& output, const ActionStatus& status)
{
    m_texts.keepOutput(output, run.updateSampleText);
    publish(status);
}

void ActionRunner::publish(const ActionStatus& status)
{
    m_services.status.publish(status);
}

void ActionRunner::publishRunning(const Run& run, const QString& text)
{
    if (!run.quiet) {
        publish(ActionStatus::running(text));
    }
}

UiLanguage ActionRunner::language() const
{
    return m_services.settings.settings().uiLanguage;
}
