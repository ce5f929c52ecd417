#include "system/BuiltInDisplayService.h"

#include "core/DefaultsStore.h"
#include "platform/SystemBell.h"

#include <QDebug>

namespace {
constexpr Clock::Duration watchdogInterval{2000};

QString flag(bool enabled)
{
    return enabled ? QStringLiteral("true") : QStringLiteral("false");
}
} // namespace

BuiltInDisplayService::BuiltInDisplayService(DisplayControl& displays, DefaultsStore& defaults, Clock& clock,
                                             SystemBell& bell, QObject* parent)
    : QObject(parent), m_displays(displays), m_defaults(defaults), m_clock(clock), m_bell(bell),
      m_canSwitch(displays.canSwitchDisplays())
{}

BuiltInDisplayService::~BuiltInDisplayService() = default;

bool BuiltInDisplayService::setEnabled(bool enabled, DisplayIdentifier display)
{
    if (!m_canSwitch) {
        return false;
    }
    const std::optional<DisplaySwitchFailure> failure = m_displays.setDisplayEnabled(display, enabled);
    if (!failure) {
        return true;
    }
    if (failure->stage == DisplaySwitchFailure::Stage::configure) {
        qWarning().noquote() << QStringLiteral("MivoraAI built-in display: configure %1 failed %2")
                                    .arg(flag(enabled))
                                    .arg(failure->status);
    } else if (failure->stage == DisplaySwitchFailure::Stage::complete) {
        qWarning().noquote() << QStringLiteral("MivoraAI built-in display: complete %1 result %2")
                                    .arg(flag(enabled))
                                    .arg(failure->status);
    }
    return false;
}

QList<DisplayIdentifier> BuiltInDisplayService::otherActiveDisplays(DisplayIdentifier excluded)
{
    QList<DisplayIdentifier> others;
    for (const DisplayIdentifier display : m_displays.activeDisplays()) {
        if (display != excluded && !m_displays.isBuiltIn(display) && m_displays.isOnline(display) &&
            !m_displays.isAsleep(display)) {
            others.append(display);
        }
    }
    return others;
}

std::optional<DisplayIdentifier> BuiltInDisplayService::activeBuiltInDisplay()
{
    for (const DisplayIdentifier display : m_displays.activeDisplays()) {
        if (m_displays.isBuiltIn(display)) {
            return display;
        }
    }
    return std::nullopt;
}

bool BuiltInDisplayService::canDisableNow()
{
    const std::optional<DisplayIdentifier> builtIn = activeBuiltInDisplay();
    return builtIn && !otherActiveDisplays(*builtIn).isEmpty() && !m_displays.isInMirrorSet(*builtIn);
}

bool BuiltInDisplayService::offersBuiltInDisplay()
{
    return m_canSwitch && (m_disabledDisplayID || activeBuiltInDisplay());
}

void BuiltInDisplayService::restoreAfterPreviousLaunch()
{
    installChangeHandler();
    const DisplayIdentifier stored = m_defaults.value(disabledDisplayKey).toUInt();
    if (stored == 0) {
        return;
    }
    // The previous run ended with the panel off. Ids need not survive a restart of the display server, so
    // when the stored one names no built-in panel now, every panel that is off comes back instead.
    if (!setEnabled(true, stored) || !m_displays.isBuiltIn(stored)) {
        for (const DisplayIdentifier display : m_displays.switchedOffBuiltInDisplays()) {
            setEnabled(true, display);
        }
    }
    m_defaults.remove(disabledDisplayKey);
}

void BuiltInDisplayService::disableBuiltIn()
{
    const std::optional<DisplayIdentifier> builtIn = m_canSwitch ? activeBuiltInDisplay() : std::nullopt;
    if (!builtIn || otherActiveDisplays(*builtIn).isEmpty() || m_displays.isInMirrorSet(*builtIn)) {
        m_bell.ring();
        return;
    }
    installChangeHandler();
    if (!setEnabled(false, *builtIn)) {
        return;
    }
    m_disabledDisplayID = *builtIn;
    m_defaults.setValue(disabledDisplayKey, qint64(*builtIn));
    startWatchdog();
    emit changed();
}

void BuiltInDisplayService::enableBuiltIn()
{
    if (!m_disabledDisplayID) {
        return;
    }
    // A failure keeps the state and the watchdog, which tries again while the safety rule still asks.
    if (!setEnabled(true, *m_disabledDisplayID)) {
        return;
    }
    m_disabledDisplayID.reset();
    m_removedDisplays.clear();
    m_defaults.remove(disabledDisplayKey);
    m_watchdog.cancel();
    emit changed();
}

void BuiltInDisplayService::toggle()
{
    if (m_disabledDisplayID) {
        enableBuiltIn();
    } else {
        disableBuiltIn();
    }
}

void BuiltInDisplayService::ensureSomeDisplayIsActive()
{
    if (!m_disabledDisplayID) {
        return;
    }
    // A display reported removed does not count, even while the active list still names it.
    for (const DisplayIdentifier display : otherActiveDisplays(*m_disabledDisplayID)) {
        if (!m_removedDisplays.contains(display)) {
            return;
        }
    }
    enableBuiltIn();
}

void BuiltInDisplayService::startWatchdog()
{
    // Beside the notices: catches displays that fall asleep or drop out without one.
    m_watchdog = m_clock.scheduleRepeating(watchdogInterval, [this] { ensureSomeDisplayIsActive(); });
}

void BuiltInDisplayService::installChangeHandler()
{
    if (m_changes) {
        return;
    }
    m_changes = m_displays.subscribeToChanges([this](const DisplayChange& change) {
        m_pendingChanges.append(change);
        if (!m_pendingHandOver.isActive()) {
            m_pendingHandOver = m_clock.schedule(Clock::Duration(0), [this] {
                const QList<DisplayChange> changes = std::exchange(m_pendingChanges, {});
                for (const DisplayChange& pending : changes) {
                    handleChange(pending);
                }
            });
        }
    });
}

void BuiltInDisplayService::handleChange(const DisplayChange& change)
{
    // The panel's own notices never count: it is what the rule brings back.
    if (!m_displays.isBuiltIn(change.display)) {
        if (change.removed) {
            m_removedDisplays.insert(change.display);
        }
        if (change.added) {
            m_removedDisplays.remove(change.display);
        }
    }
    ensureSomeDisplayIsActive();
    if (!change.beginsConfiguration) {
        emit changed();
    }
}
