#include "exchange/PermissionController.h"

#include "core/MivoraAppState.h"
#include "core/MivoraError.h"
#include "exchange/PermissionService.h"
#include "platform/PermissionProbe.h"
#include "platform/UrlOpener.h"

#include <QPointer>

void PermissionController::publish(const char* english, const char* russian, bool done)
{
    // The language of the moment, so a switch between two steps shows in the next text.
    const QString text = localized(m_state.settings().uiLanguage, english, russian);
    const ActionStatus status = done ? ActionStatus::done(text) : ActionStatus::running(text);
    m_state.setStatus(status);
    m_state.scheduleStatusReset(status);
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
    publish("Requesting permissions", "Запрашиваю разрешения", false);
    askAndStore();
    publish("Permission request sent", "Запрос разрешений отправлен", true);
    co_return;
}

QCoro::Task<> PermissionController::resetMivoraPermissions(bool requestAgain)
{
    publish("Resetting permissions", "Сбрасываю разрешения", false);
    QPointer<MivoraAppState> state(&m_state);
    try {
        co_await m_service.resetMivoraPermissions();
    } catch (const MivoraError& error) {
        if (state) {
            const ActionStatus failed = ActionStatus::failed(error.errorDescription());
            m_state.setStatus(failed);
            m_state.scheduleStatusReset(failed);
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
        publish("Permissions reset. Request sent.", "Разрешения сброшены. Новый запрос отправлен.", true);
    } else {
        readAndStore();
        publish("Mivora permissions reset", "Разрешения Mivora сброшены", true);
    }
}

void PermissionController::openPermissionSettings(PermissionSettingsTarget target)
{
    m_urlOpener.openUrl(permissionSettingsUrl(target));
}
