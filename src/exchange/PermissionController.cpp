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

void PermissionController::fail(const char* english, const char* russian)
{
    m_state.publishStatus(ActionStatus::failed(localized(m_state.settings().uiLanguage, english, russian)));
}

void PermissionController::readAndStore()
{
    m_state.setPermissionState({m_probe.canReadAccessibilityTrees(), m_probe.isInputMonitoringGranted()});
}

void PermissionController::ask()
{
    m_probe.requestAccessibility();
    m_probe.requestInputMonitoring();
}

QCoro::Task<> PermissionController::refreshPermissions()
{
    readAndStore();
    co_return;
}

QCoro::Task<> PermissionController::requestPermissions()
{
    report("Requesting permissions", "Запрашиваю разрешения", false);
    ask();
    // The system applies a request on its own time (a desktop starts its accessibility bus); the grants are
    // read after the wait, and the running text stays up for it.
    QPointer<MivoraAppState> state(&m_state);
    co_await m_clock.sleep(settleDelay);
    if (!state) {
        co_return;
    }
    readAndStore();
    report("Permission request sent", "Запрос разрешений отправлен", true);
}

QCoro::Task<> PermissionController::resetMivoraPermissions(bool requestAgain)
{
    if (!m_probe.canResetGrants()) {
        fail("Permissions can't be reset here: this system keeps no per-app grants.",
             "Здесь разрешения не сбрасываются: система не хранит разрешений отдельных программ.");
        co_return;
    }
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
    co_await m_clock.sleep(settleDelay);
    if (!state) {
        co_return;
    }
    if (requestAgain) {
        ask();
        readAndStore();
        report("Permissions reset. Request sent.", "Разрешения сброшены. Новый запрос отправлен.", true);
    } else {
        readAndStore();
        report("Mivora permissions reset", "Разрешения Mivora сброшены", true);
    }
}

void PermissionController::openPermissionSettings(PermissionSettingsTarget target)
{
    switch (m_probe.openGrantSettings()) {
    case GrantSettingsOpening::opened:
        return;
    case GrantSettingsOpening::byUrl:
        m_urlOpener.openUrl(permissionSettingsUrl(target));
        return;
    case GrantSettingsOpening::unknown:
        break;
    }
    fail("Could not open this desktop's accessibility settings; open them from its own settings.",
         "Не удалось открыть настройки специальных возможностей этого рабочего стола; откройте их в его "
         "собственных настройках.");
}
