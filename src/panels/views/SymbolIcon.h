#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace SymbolIcon {
// A symbol of the theme painter as an icon for buttons and labels, in one colour.
QIcon make(const QString& name, const QColor& color, int size = 16);
} // namespace SymbolIcon
