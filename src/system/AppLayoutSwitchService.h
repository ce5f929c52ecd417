#pragma once

#include "core/Clock.h"
#include "platform/ListenerList.h"
#include "platform/RunningApplication.h"

#include <QPointer>
#include <QString>
#include <list>
#include <optional>

class ApplicationWorkspace;
class InputSourceProvider;
class KeyboardLayoutService;
class MivoraAppState;

// Selects the keyboard layout that a rule gives an application when it comes to the front. Many
// applications restore their own input source a moment after activation, so the switch is repeated at
// 0.15, 0.4 and 0.8 s, and for 1.5 s any change of input source is answered with the rule again. GUI
// thread.
class AppLayoutSwitchService {
public:
    struct Services {
        ApplicationWorkspace& workspace;
        InputSourceProvider& inputSources;
        KeyboardLayoutService& keyboardLayout;
        Clock& clock;
    };

    explicit AppLayoutSwitchService(Services services);
    ~AppLayoutSwitchService();
    AppLayoutSwitchService(const AppLayoutSwitchService&) = delete;
    AppLayoutSwitchService& operator=(const AppLayoutSwitchService&) = delete;

    // Follows activations and input source changes from now on, and applies the rule of the application
    // in front at once. A second call only replaces the state it reads the rules from.
    void start(MivoraAppState& appState);

private:
    void handleActivation(const RunningApplication& application);
    void handleInputSourceChange();
    bool applyRule(const RunningApplication& application);
    void reapplyIfStillFrontmost(const RunningApplication& application);

    Services m_services;
    QPointer<MivoraAppState> m_appState;
    ListenerSubscription m_activationObserver;
    ListenerSubscription m_inputSourceObserver;
    std::list<ClockTimer> m_pendingReapply;
    std::optional<QString> m_guardedBundleIdentifier;
    Clock::Duration m_guardUntil{0};
};
