#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

// The icon of a symbol the settings pages name ("trash", "checkmark.circle.fill"…): drawn by the shared
// painter where it knows the symbol, else the desktop theme's icon for it, else a plain glyph in ink.
QIcon settingsSymbol(const QString& name, const QColor& ink, int size = 16);
