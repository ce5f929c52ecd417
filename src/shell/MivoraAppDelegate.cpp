#include "shell/MivoraAppDelegate.h"

#include "core/DefaultsStore.h"
#include "platform/ApplicationPresence.h"

using namespace std::chrono_literals;

namespace {

bool storedFlag(const DefaultsStore& defaults, const QString& key)
{
    const QVariant value = defaults.value(key);
    return !value.isValid() || value.toBool();
}

} // namespace

MivoraAppDelegate::MivoraAppDelegate(Services services, QObject* parent)
    : QObject(parent), m_services(std::move(services))
{}

MivoraAppDelegate::~MivoraAppDelegate() = default;

void MivoraAppDelegate::start()
{
    m_policyTimer = m_services.clock.scheduleRepeating(1000ms, [this] {
        if (shouldStayInMenuBar()) {
            applyPolicy();
        }
    });
}

void MivoraAppDelegate::stop()
{
    m_policyTimer.cancel();
    for (ClockTimer& recheck : m_rechecks) {
        recheck.cancel();
    }
}

bool MivoraAppDelegate::shouldStayInMenuBar() const
{
    const bool trayHost = !m_services.trayHostAvailable || m_services.trayHostAvailable();
    return trayHost && storedFlag(m_services.defaults, QStringLiteral("mivora.closeToMenuBar")) &&
           storedFlag(m_services.defaults, QStringLiteral("mivora.menuBarIconVisible"));
}

void MivoraAppDelegate::applyPolicy()
{
    setActivationPolicy(m_services.window.hasVisibleMainWindow() ? ActivationPolicy::regular
                                                                 : ActivationPolicy::accessory);
}

void MivoraAppDelegate::setActivationPolicy(ActivationPolicy policy)
{
    m_services.window.setActivationPolicy(policy);
    if (m_services.presence != nullptr) {
        m_services.presence->setRegular(policy == ActivationPolicy::regular);
    }
}

void MivoraAppDelegate::moveToMenuBarIfNeeded()
{
    if (!shouldStayInMenuBar()) {
        return;
    }
    applyPolicy();
    const std::array<Clock::Duration, 3> delays{50ms, 200ms, 500ms};
    for (std::size_t i = 0; i < delays.size(); ++i) {
        m_rechecks[i] = m_services.clock.schedule(delays[i], [this] {
            if (shouldStayInMenuBar()) {
                applyPolicy();
            }
        });
    }
}

bool MivoraAppDelegate::windowShouldClose()
{
    if (m_isTerminating || !shouldStayInMenuBar()) {
        return true;
    }
    m_services.window.orderOut();
    moveToMenuBarIfNeeded();
    return false;
}

bool MivoraAppDelegate::applicationShouldTerminateAfterLastWindowClosed()
{
    if (shouldStayInMenuBar()) {
        moveToMenuBarIfNeeded();
        return false;
    }
    return true;
}

void MivoraAppDelegate::showMainWindow()
{
    setActivationPolicy(ActivationPolicy::regular);
    m_services.window.showAndActivate();
}
