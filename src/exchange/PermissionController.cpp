#include "exchange/PermissionController.h"

#include "core/MivoraAppState.h"
#include "core/MivoraError.h"
#include "exchange/PermissionService.h"
#include "platform/PermissionProbe.h"
#include "platform/UrlOpener.h"

#include <QPointer>

void PermissionController::report(const char* english, const char* russian, bool done)
{
    // The language of the moment, so a switch between two steps shows in the next text.
    const QString text = localized(m_state.settings().uiLanguage, english, russian);
    m_state.publishStatus(done ? ActionStatus::done(text) : ActionStatus::running(text));
}

void PermissionController::readAndStore()
{
    m_state.setPermissionState({m_probe.isAccessibilityGranted(), m_probe.isInputMonitoringGranted()});
}

void PermissionController::askAndStore()
{
    m_probe.requestAccessibility();
    m_probe.requestInputMonitoring();
    readAndStore();
}

QCoro::Task<> PermissionController::refreshPermissions()
{
    readAndStore();
    co_return;
}

QCoro::Task<> PermissionController::requestPermissions()
{
    report("Requesting permissions", "Запрашиваю разрешения", false);
    // The requests run in a task of their own, so the running text is shown until they are done
    // even where asking returns at once.
    QPointer<MivoraAppState> state(&m_state);
    co_await m_clock.sleep(Clock::Duration::zero());
    if (!state) {
        co_return;
    }
    askAndStore();
    report("Permission request sent", "Запрос разрешений отправлен", true);
}

QCoro::Task<> PermissionController::resetMivoraPermissions(bool requestAgain)
{
    report("Resetting permissions", "Сбрасываю разрешения", false);
    QPointer<MivoraAppState> state(&m_state);
    try {
        co_await m_service.resetMivoraPermissions();
    } catch (const MivoraError& error) {
        if (state) {
            m_state.publishStatus(ActionStatus::failed(error.errorDescription()));
        }
        co_return;
    }
    // Give the system a moment to drop the old grants before asking again.
    co_await m_clock.sleep(resetSettleDelay);
    if (!state) {
        co_return;
    }
    if (requestAgain) {
        askAndStore();
        report("Permissions reset. Request sent.", "Разрешения сброшены. Новый запрос отправлен.", true);
    } else {
        readAndStore();
        report("Mivora permissions reset", "Разрешения Mivora сброшены", true);
    }
}

void PermissionController::openPermissionSettings(PermissionSettingsTarget target)
{
    m_urlOpener.openUrl(permissionSettingsUrl(target));
}
