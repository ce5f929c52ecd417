#include "X11PermissionProbe.h"

#include "DesktopAccessibilitySettings.h"

#include <QProcess>

X11PermissionProbe::X11PermissionProbe(Display* display, QString currentDesktop)
    : m_currentDesktop(std::move(currentDesktop)), m_hasXTest(X11DisplayConnection::hasXTest(display)),
      m_hasXInput2(X11DisplayConnection::hasXInput2(display))
{}

GrantSettingsOpening X11PermissionProbe::openGrantSettings()
{
    const std::optional<QStringList> command = accessibilitySettingsCommand(m_currentDesktop);
    if (!command || !QProcess::startDetached(command->first(), command->mid(1))) {
        return GrantSettingsOpening::unknown;
    }
    return GrantSettingsOpening::opened;
}
