#pragma once

#include "platform/PlatformServices.h"

#include <QObject>
#include <memory>
#include <qcoro/qcorotask.h>

class DefaultsStore;
class EventLoopClock;
class KeyboardLayoutService;
class MivoraAppState;
class NativeSettingsStore;
class TextActionService;
class TextExchange;

// Owns the long-lived objects of the process and wires them together.
class MivoraNativeApp : public QObject {
    Q_OBJECT
public:
    explicit MivoraNativeApp(QObject* parent = nullptr);
    ~MivoraNativeApp() override;

    MivoraAppState& appState() { return *m_appState; }

    // Runs one action on text without touching other applications; prints the result to stdout or the
    // failure to stderr. Returns the process exit status.
    QCoro::Task<int> runCommand(QString action, QString text);
    // Starts the resident services in their fixed order.
    void start();

private:
    std::unique_ptr<EventLoopClock> m_clock;
    std::unique_ptr<DefaultsStore> m_defaults;
    std::unique_ptr<NativeSettingsStore> m_settingsStore;
    PlatformServices m_platform;
    std::unique_ptr<KeyboardLayoutService> m_keyboardLayout;
    std::unique_ptr<TextActionService> m_actions;
    std::unique_ptr<TextExchange> m_exchange;
    std::unique_ptr<MivoraAppState> m_appState;
};
