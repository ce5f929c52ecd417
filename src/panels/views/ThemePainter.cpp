#include "panels/views/ThemePainter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

// Outline symbols of the list panels, drawn on a unit box.
bool paintLineSymbol(QPainter& painter, const QRectF& box, const QString& name, const QPen& pen)
{
    const auto at = [&box](qreal x, qreal y) {
        return QPointF(box.left() + box.width() * x, box.top() + box.height() * y);
    };
    const auto rect = [&box](qreal x, qreal y, qreal w, qreal h) {
        return QRectF(box.left() + box.width() * x, box.top() + box.height() * y, box.width() * w,
                      box.height() * h);
    };
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    if (name == u"plus" || name == u"minus") {
        painter.drawLine(at(0.2, 0.5), at(0.8, 0.5));
        if (name == u"plus") {
            painter.drawLine(at(0.5, 0.2), at(0.5, 0.8));
        }
    } else if (name == u"xmark") {
        painter.drawLine(at(0.25, 0.25), at(0.75, 0.75));
        painter.drawLine(at(0.75, 0.25), at(0.25, 0.75));
    } else if (name == u"xmark.circle.fill") {
        painter.setPen(Qt::NoPen);
        painter.setBrush(pen.color());
        painter.drawEllipse(rect(0.06, 0.06, 0.88, 0.88));
        painter.setPen(QPen(Qt::white, pen.widthF(), Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(at(0.35, 0.35), at(0.65, 0.65));
        painter.drawLine(at(0.65, 0.35), at(0.35, 0.65));
    } else if (name == u"checkmark") {
        painter.drawPolyline(QPolygonF({at(0.2, 0.52), at(0.42, 0.72), at(0.8, 0.3)}));
    } else if (name == u"trash") {
        painter.drawLine(at(0.18, 0.26), at(0.82, 0.26));
        painter.drawLine(at(0.4, 0.14), at(0.6, 0.14));
        painter.drawPolyline(QPolygonF({at(0.26, 0.26), at(0.32, 0.88), at(0.68, 0.88), at(0.74, 0.26)}));
    } else if (name == u"magnifyingglass") {
        painter.drawEllipse(rect(0.14, 0.14, 0.5, 0.5));
        painter.drawLine(at(0.56, 0.56), at(0.86, 0.86));
    } else if (name == u"clipboard") {
        painter.drawRoundedRect(rect(0.2, 0.18, 0.6, 0.72), 2, 2);
        painter.drawRoundedRect(rect(0.36, 0.1, 0.28, 0.14), 1, 1);
    } else if (name == u"note.text") {
        painter.drawRoundedRect(rect(0.18, 0.14, 0.64, 0.72), 2, 2);
        for (const qreal y : {0.34, 0.5, 0.66}) {
            painter.drawLine(at(0.32, y), at(0.68, y));
        }
    } else if (name == u"pencil") {
        painter.drawPolygon(
            QPolygonF({at(0.66, 0.14), at(0.86, 0.34), at(0.38, 0.82), at(0.16, 0.84), at(0.18, 0.62)}));
    } else if (name == u"arrow.turn.down.left") {
        painter.drawPolyline(QPolygonF({at(0.8, 0.18), at(0.8, 0.62), at(0.22, 0.62)}));
        painter.drawPolyline(QPolygonF({at(0.4, 0.44), at(0.22, 0.62), at(0.4, 0.8)}));
    } else if (name == u"doc.on.doc" || name == u"plus.square.on.square") {
        painter.drawRoundedRect(rect(0.14, 0.14, 0.5, 0.56), 2, 2);
        painter.drawRoundedRect(rect(0.36, 0.3, 0.5, 0.56), 2, 2);
        if (name == u"plus.square.on.square") {
            painter.drawLine(at(0.61, 0.46), at(0.61, 0.7));
            painter.drawLine(at(0.49, 0.58), at(0.73, 0.58));
        }
    } else {
        return false;
    }
    return true;
}

} // namespace

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
    } else if (paintLineSymbol(painter, box, name, pen)) {
        // Drawn in outline by the symbol table.
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(box.center(), side / 5, side / 5);
    }
    painter.restore();
}
