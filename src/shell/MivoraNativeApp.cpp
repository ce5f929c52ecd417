#include "shell/MivoraNativeApp.h"

#include "core/EventLoopClock.h"
#include "core/MivoraAppState.h"
#include "core/MivoraError.h"
#include "core/NativeSettingsStore.h"
#include "core/QSettingsDefaultsStore.h"
#include "core/TextActionService.h"
#include "core/TextExchange.h"
#include "platform/InputSourceProvider.h"
#include "platform/SystemSurfaceSignals.h"
#include "text/KeyboardLayoutService.h"

#include <QTextStream>

namespace {

// Until the selection exchange exists on this platform, every run that needs another application fails
// with a clear text instead of pretending.
class UnavailableTextExchange : public TextExchange {
public:
    QString selectedTextForLayout() override { return {}; }
    QCoro::Task<QString> readSelectedTextTransient(bool, bool, PasteboardTiming) override
    {
        throw MivoraError(QStringLiteral("Reading the selection is not available on this system yet."));
        co_return QString();
    }
    QCoro::Task<> pasteTransient(QString, std::optional<QString>, PasteboardTiming) override
    {
        throw MivoraError(
            QStringLiteral("Pasting into other applications is not available on this system yet."));
        co_return;
    }
    QCoro::Task<bool> replaceSelectedTextViaAccessibility(QString) override { co_return false; }
};

class NotPortedActionService : public TextActionService {
public:
    QCoro::Task<QString> run(QuickAction action, QString, QString, QList<PromptStyle>) override
    {
        throw MivoraError(QStringLiteral("Native Swift action is not ported yet: ") + action.id);
        co_return QString();
    }
};

} // namespace

MivoraNativeApp::MivoraNativeApp(QObject* parent)
    : QObject(parent), m_clock(std::make_unique<EventLoopClock>()),
      m_defaults(std::make_unique<QSettingsDefaultsStore>()),
      m_settingsStore(std::make_unique<NativeSettingsStore>(*m_defaults)),
      m_platform(PlatformServices::create()),
      m_keyboardLayout(std::make_unique<KeyboardLayoutService>(*m_platform.inputSources)),
      m_actions(std::make_unique<NotPortedActionService>()),
      m_exchange(std::make_unique<UnavailableTextExchange>())
{
    m_appState = std::make_unique<MivoraAppState>(
        MivoraAppState::Services{*m_clock, *m_settingsStore, *m_keyboardLayout, *m_actions, *m_exchange,
                                 m_platform.surfaceSignals.get()});
}

MivoraNativeApp::~MivoraNativeApp() = default;

QCoro::Task<int> MivoraNativeApp::runCommand(QString action, QString text)
{
    m_appState->setSampleText(text);
    co_await m_appState->runToEnd(QuickAction(QuickAction::normalize(action)), false, true);
    const ActionStatus& status = m_appState->status();
    if (status.kind == ActionStatus::Kind::done) {
        QTextStream(stdout) << m_appState->latestOutput() << Qt::endl;
        co_return 0;
    }
    QTextStream(stderr) << (status.text.isEmpty() ? QStringLiteral("The action did not finish.")
                                                  : status.text)
                        << Qt::endl;
    co_return 1;
}

void MivoraNativeApp::start()
{
    m_appState->startSystemSurfaceObserver();
}
