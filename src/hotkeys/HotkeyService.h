#pragma once

#include "hotkeys/GlobalHotkeySuspension.h"
#include "hotkeys/RegisteredHotkeyAction.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <qcoro/qcorotask.h>

class QuietSelectionReader;
class ApplicationWorkspace;
class FocusService;
class GlobalHotkeyRegistrar;
class HotkeyPanelTargets;
class HotkeyWindowTargets;
class MivoraAppState;
class TextExchange;

// Puts every configured hotkey in force with one numbering and one conflict rule, re-registers on every
// settings change, and dispatches presses. GUI thread only.
class HotkeyService : public QObject, public GlobalHotkeySuspension {
    Q_OBJECT
public:
    struct Services {
        GlobalHotkeyRegistrar& registrar;
        ApplicationWorkspace& workspace;
        FocusService& focus;
        QuietSelectionReader& reader;
        TextExchange& exchange;
        HotkeyPanelTargets& panels;
        HotkeyWindowTargets& windows;
    };

    explicit HotkeyService(Services services, QObject* parent = nullptr);
    ~HotkeyService() override;

    // Ignored when already started. A failure is shown through the state's status and leaves it stopped.
    void start(MivoraAppState& appState);
    void stop();
    bool isStarted() const { return m_started; }

    const QMap<quint32, RegisteredHotkeyAction>& registeredActions() const { return m_registeredActions; }

    void suspendGlobalHotkeys() override;
    void resumeGlobalHotkeys() override;

private:
    void registerConfiguredHotkeys();
    bool registerHotkey(quint32 id, const QString& hotkey, const RegisteredHotkeyAction& action,
                        QSet<QString>& registeredSignatures);
    void reloadConfiguredHotkeys();
    void handleHotkey(quint32 id);
    void rememberTarget();
    void runAction(const QString& actionId);
    void dispatchWindowTiling(const QString& tilingId);
    QCoro::Task<> showAssistant();
    QCoro::Task<> showReply(QString styleId);
    void reportFailure(const QString& description);

    Services m_services;
    QPointer<MivoraAppState> m_appState;
    bool m_started = false;
    int m_suspensions = 0;
    QMap<quint32, RegisteredHotkeyAction> m_registeredActions;
    QMetaObject::Connection m_settingsConnection;
};
