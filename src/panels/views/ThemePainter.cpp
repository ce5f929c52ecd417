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

void ThemePainter::paintSymbol(QPainter& painter, const QRectF& rect, const QString& name,
                               const QColor& color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = std::min(rect.width(), rect.height());
    const QRectF box(rect.center().x() - side / 2, rect.center().y() - side / 2, side, side);
    const qreal stroke = std::max<qreal>(1.5, side / 9);
    QPen pen(color, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);

    const auto checkmark = [&](const QColor& ink) {
        QPainterPath tick;
        tick.moveTo(box.left() + side * 0.28, box.top() + side * 0.52);
        tick.lineTo(box.left() + side * 0.44, box.top() + side * 0.67);
        tick.lineTo(box.left() + side * 0.72, box.top() + side * 0.35);
        painter.setPen(QPen(ink, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(tick);
    };

    if (name == u"checkmark.circle.fill") {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(box);
        checkmark(Qt::white);
    } else if (name == u"checkmark.circle") {
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(box.adjusted(stroke / 2, stroke / 2, -stroke / 2, -stroke / 2));
        checkmark(color);
    } else if (name == u"exclamationmark.triangle.fill") {
        QPainterPath triangle;
        triangle.moveTo(box.center().x(), box.top() + side * 0.06);
        triangle.lineTo(box.right() - side * 0.02, box.bottom() - side * 0.1);
        triangle.lineTo(box.left() + side * 0.02, box.bottom() - side * 0.1);
        triangle.closeSubpath();
        painter.setPen(QPen(color, stroke / 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(color);
        painter.drawPath(triangle);
        painter.setPen(QPen(Qt::white, stroke, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(box.center().x(), box.top() + side * 0.36),
                         QPointF(box.center().x(), box.top() + side * 0.6));
        painter.drawPoint(QPointF(box.center().x(), box.top() + side * 0.75));
    } else if (name == u"progress.indicator") {
        // A still arc: the overlay is redrawn only when the status changes.
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        const QRectF ring = box.adjusted(stroke, stroke, -stroke, -stroke);
        painter.drawArc(ring, 90 * 16, -270 * 16);
    } else if (name == u"bolt.fill") {
        QPainterPath bolt;
        bolt.moveTo(box.left() + side * 0.58, box.top());
        bolt.lineTo(box.left() + side * 0.2, box.top() + side * 0.56);
        bolt.lineTo(box.left() + side * 0.48, box.top() + side * 0.56);
        bolt.lineTo(box.left() + side * 0.4, box.bottom());
        bolt.lineTo(box.left() + side * 0.8, box.top() + side * 0.42);
        bolt.lineTo(box.left() + side * 0.52, box.top() + side * 0.42);
        bolt.closeSubpath();
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawPath(bolt);
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(box.center(), side / 5, side / 5);
    }
    painter.restore();
}
