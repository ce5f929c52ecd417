#pragma once

#include "core/Clock.h"
#include "exchange/PermissionSettingsTarget.h"

#include <qcoro/qcorotask.h>

class MivoraAppState;
class PermissionProbe;
class PermissionService;
class UrlOpener;

// The permission operations of the application state: refresh, request, reset, open the settings
// pane. Each returns at once with the work in a coroutine on the GUI thread; the returned task may be
// dropped.
class PermissionController {
public:
    PermissionController(MivoraAppState& state, Clock& clock, PermissionProbe& probe,
                         PermissionService& service, UrlOpener& urlOpener)
        : m_state(state), m_clock(clock), m_probe(probe), m_service(service), m_urlOpener(urlOpener)
    {}

    // Reads both grants into the state's permissionState.
    QCoro::Task<> refreshPermissions();
    // Shows "Requesting permissions" and asks for both grants at once; after settleDelay reads them and
    // shows the done text.
    QCoro::Task<> requestPermissions();
    // Resets the grants of every identifier the program ran under, then reads (or requests) them again; fails
    // at once with a text where the system keeps no grants to reset.
    QCoro::Task<> resetMivoraPermissions(bool requestAgain);
    // Opens the system's settings for the grants (the target's pane where panes have URLs); a failed status
    // where none can be opened.
    void openPermissionSettings(PermissionSettingsTarget target);

    // How long the system is given to apply a request or a reset before the grants are read again.
    static constexpr Clock::Duration settleDelay{350};

private:
    void report(const char* english, const char* russian, bool done);
    void fail(const char* english, const char* russian);
    void ask();
    void readAndStore();

    MivoraAppState& m_state;
    Clock& m_clock;
    PermissionProbe& m_probe;
    PermissionService& m_service;
    UrlOpener& m_urlOpener;
};
