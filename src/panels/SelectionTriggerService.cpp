#include "panels/SelectionTriggerService.h"

#include "core/MivoraAppState.h"
#include "core/PasteboardTiming.h"
#include "core/TextExchange.h"
#include "exchange/FocusService.h"
#include "exchange/OwnApplication.h"
#include "exchange/QuietSelectionReader.h"
#include "panels/FloatingButtonController.h"
#include "panels/QuickPanelController.h"
#include "platform/ApplicationWorkspace.h"
#include "platform/InputEventMonitor.h"

SelectionTriggerService::SelectionTriggerService(Services services, QObject* parent)
    : QObject(parent), m_services(services)
{}

SelectionTriggerService::~SelectionTriggerService() = default;

void SelectionTriggerService::start(MivoraAppState& appState, QuickPanelController& quickPanel,
                                    FloatingButtonController& floatingButton)
{
    if (isStarted()) {
        return;
    }
    m_appState = &appState;
    m_quickPanel = &quickPanel;
    m_floatingButton = &floatingButton;
    QPointer<SelectionTriggerService> self(this);
    const auto gestureEnded = [self](const MonitoredInputEvent&) {
        QMetaObject::invokeMethod(
            self, [self] { self->scheduleSelectionCheck(); }, Qt::QueuedConnection);
    };
    const MonitoredInputEvent::Kinds releases =
        MonitoredInputEvent::Kind::leftMouseUp | MonitoredInputEvent::Kind::keyUp;
    m_localMonitor = m_services.localInput.addMonitor(releases, gestureEnded);
    m_globalMonitor = m_services.globalInput.addMonitor(releases, gestureEnded);
    connect(&appState, &MivoraAppState::settingsChanged, this, [this] {
        if (switchesOff()) {
            hideButton();
        }
    });
}

bool SelectionTriggerService::switchesOff() const
{
    return !m_appState ||
           (!m_appState->settings().autoQuickMenuEnabled && !m_appState->settings().floatingButtonVisible);
}

void SelectionTriggerService::hideButton()
{
    if (m_floatingButton) {
        m_floatingButton->hide();
    }
}

void SelectionTriggerService::scheduleSelectionCheck()
{
    if (!m_appState) {
        return;
    }
    if (switchesOff()) {
        hideButton();
        return;
    }
    // Each gesture restarts the wait, so a burst of key releases ends in one check.
    m_checkTimer = m_services.clock.schedule(checkDelay, [this] { checkSelection(); });
}

bool SelectionTriggerService::isMivoraFrontmost()
{
    const auto front = m_services.workspace.frontmostApplication();
    return front && OwnApplication::isOwn(*front, m_services.workspace.currentProcessIdentifier());
}

QCoro::Task<> SelectionTriggerService::checkSelection()
{
    if (!m_appState || !m_quickPanel || !m_floatingButton) {
        co_return;
    }
    if (switchesOff()) {
        hideButton();
        co_return;
    }
    if (isMivoraFrontmost() || m_quickPanel->isVisible()) {
        co_return;
    }
    if (const auto front = m_services.workspace.frontmostApplication()) {
        m_services.focus.remember(*front);
    }
    QPointer<SelectionTriggerService> self(this);
    // The quiet read first: the copy route sends a shortcut to the other application.
    QString text = (co_await m_services.reader.selectedText()).trimmed();
    if (!self) {
        co_return;
    }
    if (text.isEmpty()) {
        try {
            text = (co_await m_services.exchange.readSelectedTextTransient(
                        false, false, PasteboardTiming::standardTiming()))
                       .trimmed();
        } catch (const std::exception&) {
            text.clear();
        }
        if (!self) {
            co_return;
        }
    }
    if (!m_appState || !m_quickPanel || !m_floatingButton) {
        co_return;
    }
    if (text.isEmpty()) {
        hideButton();
        m_lastSelectionSignature.clear();
        co_return;
    }
    const QString signature =
        QString::number(m_services.focus.rememberedProcessIdentifier().value_or(0)) + u':' + text;
    const Clock::Duration now = m_services.clock.elapsed();
    // The key-up and the mouse-up of one gesture do not bring it twice; a click on it a second later does.
    if (signature == m_lastSelectionSignature && m_lastShownAt && now - *m_lastShownAt < repeatGuard) {
        co_return;
    }
    m_lastSelectionSignature = signature;
    m_lastShownAt = now;
    const MivoraSettings& settings = m_appState->settings();
    if (settings.autoQuickMenuEnabled) {
        hideButton();
        m_quickPanel->show(*m_appState);
    } else if (settings.floatingButtonVisible) {
        m_floatingButton->show(*m_appState, *m_quickPanel);
    }
}
