#pragma once

#include "core/SettingsEnums.h"
#include "panels/AppearancePalette.h"

#include <QColor>
#include <QPalette>
#include <QRectF>

class QPainter;

// Turns the palette into Qt colours and paints the shared glass sheet of every window and panel.
class ThemePainter {
public:
    static QColor color(const ThemeColor& color, const QPalette& palette);
    // Dark when the platform's window colour is dark.
    static ColorScheme schemeOf(const QPalette& palette);
    // The rounded sheet: the appearance's gradient and tint (or the platform's window colour for the system
    // appearance), the veil, and a hairline border. A solid surface is painted opaque.
    static void paintSheet(QPainter& painter, const QRectF& rect, qreal cornerRadius,
                           AppearanceMode appearance, SurfaceMode surface, const QPalette& palette);
};
