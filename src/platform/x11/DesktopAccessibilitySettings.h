#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// The command line that opens the accessibility settings of the desktop named by XDG_CURRENT_DESKTOP (a
// colon-separated list, most specific first, compared without regard to case); nullopt for a desktop whose
// settings are not known.
std::optional<QStringList> accessibilitySettingsCommand(const QString& currentDesktop);
