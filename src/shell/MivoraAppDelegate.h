#pragma once

#include "core/Clock.h"
#include "shell/MainWindowHost.h"

#include <QObject>
#include <array>
#include <functional>

class ApplicationPresence;
class DefaultsStore;

// Decides at each moment whether the program is a windowed application or lives in the tray alone, and
// whether closing the main window hides it or ends the program. The program never hides without a way back:
// with the tray icon off, or no tray host at all, closing the window quits. GUI thread.
class MivoraAppDelegate : public QObject {
    Q_OBJECT
public:
    struct Services {
        Clock& clock;
        DefaultsStore& defaults;
        MainWindowHost& window;
        // Whether the desktop runs a tray host that can show our icon.
        std::function<bool()> trayHostAvailable;
        // The platform's own presence switch beside the window's; null where there is none.
        ApplicationPresence* presence = nullptr;
    };

    explicit MivoraAppDelegate(Services services, QObject* parent = nullptr);
    ~MivoraAppDelegate() override;

    // Starts the presence check that mends the policy every second.
    void start();
    // Stops every timer; the process is ending.
    void stop();

    // Read from the defaults store, not the settings record: both "mivora.closeToMenuBar" and
    // "mivora.menuBarIconVisible" (true when missing), and a tray host to show the icon.
    bool shouldStayInMenuBar() const;
    // Sets the policy from the main window's visibility and checks again 0.05, 0.2 and 0.5 s later, while the
    // window is still going away.
    void moveToMenuBarIfNeeded();
    // The main window asks to close: true lets it close; false means it was hidden instead.
    bool windowShouldClose();
    bool applicationShouldTerminateAfterLastWindowClosed();
    // Termination has been accepted: from now on windows really close.
    void applicationShouldTerminate() { m_isTerminating = true; }
    bool isTerminating() const { return m_isTerminating; }
    // Brings the main window back, as clicking the program's icon or starting it a second time does.
    void showMainWindow();

private:
    void applyPolicy();
    void setActivationPolicy(ActivationPolicy policy);

    Services m_services;
    ClockTimer m_policyTimer;
    std::array<ClockTimer, 3> m_rechecks;
    bool m_isTerminating = false;
};
