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
    // Shows "Requesting permissions" at once; on a later turn of the event loop asks for both grants, reads
    // them and shows the done text.
    QCoro::Task<> requestPermissions();
    // Resets the grants of every identifier the program ran under, then reads (or requests) them again.
    QCoro::Task<> resetMivoraPermissions(bool requestAgain);
    void openPermissionSettings(PermissionSettingsTarget target);

    static constexpr Clock::Duration resetSettleDelay{350};

private:
    void report(const char* english, const char* russian, bool done);
    void askAndStore();
    void readAndStore();

    MivoraAppState& m_state;
    Clock& m_clock;
    PermissionProbe& m_probe;
    PermissionService& m_service;
    UrlOpener& m_urlOpener;
};
