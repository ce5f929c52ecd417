#include "panels/views/ThemePainter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

QColor ThemePainter::color(const ThemeColor& color, const QPalette& palette)
{
    QColor result;
    switch (color.source) {
    case ThemeColor::Source::fixed:
        result = QColor::fromRgbF(float(color.red), float(color.green), float(color.blue));
        break;
    case ThemeColor::Source::platformAccent:
        // Qt before 6.6 has no accent role; the selection colour is what desktops derive from their accent.
        result = palette.color(QPalette::Highlight);
        break;
    case ThemeColor::Source::platformWindowBackground:
        result = palette.color(QPalette::Window);
        break;
    }
    result.setAlphaF(float(color.opacity));
    return result;
}

ColorScheme ThemePainter::schemeOf(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < 128 ? ColorScheme::dark : ColorScheme::light;
}

void ThemePainter::paintSheet(QPainter& painter, const QRectF& rect, qreal cornerRadius,
                              AppearanceMode appearance, SurfaceMode surface, const QPalette& palette)
{
    const ColorScheme scheme = schemeOf(palette);
    const bool solid = surface == SurfaceMode::solid;
    // Without a blur behind it, a translucent sheet stays mostly opaque so text keeps its contrast.
    const float baseAlpha = solid ? 1.0f : 0.9f;

    QPainterPath sheet;
    const QRectF inner = rect.adjusted(0.5, 0.5, -0.5, -0.5);
    sheet.addRoundedRect(inner, cornerRadius, cornerRadius);

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (appearance == AppearanceMode::system) {
        QColor base = palette.color(QPalette::Window);
        base.setAlphaF(baseAlpha);
        painter.fillPath(sheet, base);
        painter.fillPath(sheet, color(AppearancePalette::systemSolidGlassOverlay(surface, scheme), palette));
    } else {
        const auto [top, bottom] = AppearancePalette::backgroundColors(appearance);
        QLinearGradient gradient(inner.topLeft(), inner.bottomLeft());
        QColor topColor = color(top, palette);
        QColor bottomColor = color(bottom, palette);
        topColor.setAlphaF(baseAlpha);
        bottomColor.setAlphaF(baseAlpha);
        gradient.setColorAt(0, topColor);
        gradient.setColorAt(1, bottomColor);
        painter.fillPath(sheet, gradient);
        QColor tint = color(AppearancePalette::surfaceTint(appearance), palette);
        tint.setAlphaF(0.18f);
        painter.fillPath(sheet, tint);
    }
    painter.fillPath(sheet, color(AppearancePalette::glassWash(surface, scheme), palette));
    painter.setPen(QPen(color(AppearancePalette::floatingBorderColor(surface, scheme), palette), 1));
    painter.drawPath(sheet);
    painter.restore();
}
