#pragma once

#include "core/Clock.h"
#include "core/MivoraAppState.h"
#include "platform/ListenerList.h"

#include <QObject>
#include <QPointer>
#include <optional>
#include <qcoro/qcorotask.h>

class ApplicationWorkspace;
class FloatingButtonController;
class FocusService;
class InputEventMonitor;
class QuickPanelController;
class QuietSelectionReader;
class TextExchange;

// Watches for the end of a mouse or keyboard gesture anywhere and, once text is selected in another
// application, opens the quick panel or shows the floating button, as the two settings say; with both off
// it reads nothing. GUI thread.
class SelectionTriggerService : public QObject {
    Q_OBJECT
public:
    struct Services {
        Clock& clock;
        ApplicationWorkspace& workspace;
        FocusService& focus;
        QuietSelectionReader& reader;
        TextExchange& exchange;
        InputEventMonitor& localInput;
        InputEventMonitor& globalInput;
    };

    static constexpr Clock::Duration checkDelay{230};
    static constexpr Clock::Duration repeatGuard{1000};

    explicit SelectionTriggerService(Services services, QObject* parent = nullptr);
    ~SelectionTriggerService() override;

    // Starts watching for good; a second call does nothing. The three must outlive the watch or be gone
    // before the next event.
    void start(MivoraAppState& appState, QuickPanelController& quickPanel,
               FloatingButtonController& floatingButton);
    bool isStarted() const { return bool(m_localMonitor) || bool(m_globalMonitor); }

private:
    void scheduleSelectionCheck();
    QCoro::Task<> checkSelection();
    bool isMivoraFrontmost();
    bool switchesOff() const;
    void hideButton();

    Services m_services;
    QPointer<MivoraAppState> m_appState;
    QPointer<QuickPanelController> m_quickPanel;
    QPointer<FloatingButtonController> m_floatingButton;
    ListenerSubscription m_localMonitor;
    ListenerSubscription m_globalMonitor;
    ClockTimer m_checkTimer;
    QString m_lastSelectionSignature;
    std::optional<Clock::Duration> m_lastShownAt;
};
