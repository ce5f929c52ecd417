#include "panels/views/SymbolIcons.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPolygonF>

namespace {

struct Symbol {
    const char16_t* themeName;
    // Drawn when the symbol has no shape of its own below; every one is in DejaVu Sans.
    const char16_t* glyph;
};

const QHash<QString, Symbol>& symbols()
{
    static const QHash<QString, Symbol> table{
        // Actions and styles.
        {QStringLiteral("bubble.left.and.bubble.right"), {u"internet-chat", u"❝"}},
        {QStringLiteral("bubble.left.and.text.bubble.right"), {u"mail-reply-sender", u"❝"}},
        {QStringLiteral("translate"), {u"preferences-desktop-locale", u"⇄"}},
        {QStringLiteral("wand.and.sparkles"), {u"tools-check-spelling", u"✧"}},
        {QStringLiteral("sparkles"), {u"starred", u"✦"}},
        {QStringLiteral("face.smiling"), {u"face-smile", u"☺"}},
        {QStringLiteral("briefcase"), {u"applications-office", u"▣"}},
        {QStringLiteral("bolt"), {u"", u"ϟ"}},
        {QStringLiteral("bolt.fill"), {u"", u"ϟ"}},
        {QStringLiteral("bolt.circle"), {u"", u"ϟ"}},
        {QStringLiteral("text.document"), {u"text-x-generic", u"≣"}},
        {QStringLiteral("theatermasks"), {u"face-laugh", u"☻"}},
        {QStringLiteral("heart.circle"), {u"face-kiss", u"♡"}},
        {QStringLiteral("heart"), {u"emblem-favorite", u"♥"}},
        {QStringLiteral("flame"), {u"face-devilish", u"♨"}},
        {QStringLiteral("building.columns"), {u"x-office-document", u"♜"}},
        {QStringLiteral("hands.sparkles"), {u"face-angel", u"☘"}},
        {QStringLiteral("graduationcap"), {u"applications-science", u"✎"}},
        {QStringLiteral("megaphone"), {u"audio-volume-high", u"♫"}},
        {QStringLiteral("clipboard"), {u"edit-paste", u"▤"}},
        {QStringLiteral("keyboard"), {u"input-keyboard", u"⌨"}},
        // Settings pages and menus.
        {QStringLiteral("gearshape"), {u"preferences-system", u"⚙"}},
        {QStringLiteral("text.badge.star"), {u"format-text-bold", u"★"}},
        {QStringLiteral("lock.shield"), {u"security-high", u"◈"}},
        {QStringLiteral("arrow.down.circle"), {u"software-update-available", u"⇩"}},
        {QStringLiteral("checkmark"), {u"object-select", u"✓"}},
        {QStringLiteral("chevron.up.chevron.down"), {u"pan-down", u"⇕"}},
        {QStringLiteral("chevron.down"), {u"pan-down", u"▾"}},
        {QStringLiteral("arrow.down.circle.fill"), {u"software-update-available", u"⇩"}},
        {QStringLiteral("arrow.triangle.2.circlepath"), {u"view-refresh", u"⟳"}},
        {QStringLiteral("clock"), {u"appointment-soon", u"◔"}},
        // Panel controls.
        {QStringLiteral("plus"), {u"list-add", u"+"}},
        {QStringLiteral("minus"), {u"list-remove", u"−"}},
        {QStringLiteral("xmark"), {u"window-close", u"✕"}},
        {QStringLiteral("xmark.circle.fill"), {u"edit-clear", u"⊗"}},
        {QStringLiteral("trash"), {u"edit-delete", u"✗"}},
        {QStringLiteral("magnifyingglass"), {u"edit-find", u"⌕"}},
        {QStringLiteral("note.text"), {u"text-x-generic", u"≣"}},
        {QStringLiteral("pencil"), {u"document-edit", u"✎"}},
        {QStringLiteral("arrow.turn.down.left"), {u"edit-paste", u"↵"}},
        {QStringLiteral("arrow.clockwise"), {u"view-refresh", u"↻"}},
        {QStringLiteral("doc.on.doc"), {u"edit-copy", u"❐"}},
        {QStringLiteral("plus.square.on.square"), {u"edit-copy", u"❐"}},
        {QStringLiteral("doc.on.clipboard"), {u"edit-paste", u"▤"}},
        {QStringLiteral("plus.message"), {u"document-new", u"✚"}},
        {QStringLiteral("globe"), {u"preferences-desktop-locale", u"◍"}},
        {QStringLiteral("paperplane.fill"), {u"mail-send", u"➤"}},
        {QStringLiteral("sidebar.left"), {u"view-split-left-right", u"◧"}},
        {QStringLiteral("sidebar.leading"), {u"view-split-left-right", u"◨"}},
        // Status.
        {QStringLiteral("checkmark.circle.fill"), {u"emblem-ok", u"✔"}},
        {QStringLiteral("checkmark.circle"), {u"emblem-default", u"✓"}},
        {QStringLiteral("exclamationmark.triangle.fill"), {u"dialog-warning", u"⚠"}},
        {QStringLiteral("exclamationmark.circle"), {u"dialog-warning", u"!"}},
        {QStringLiteral("progress.indicator"), {u"process-working", u"◌"}},
    };
    return table;
}

// The few symbols drawn as shapes of their own, for the status overlay and the panels' marks; false for
// the rest.
bool paintShape(QPainter& painter, const QRectF& box, const QString& name, const QColor& color)
{
    const qreal side = box.width();
    const qreal stroke = std::max<qreal>(1.5, side / 9);
    const QPen pen(color, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const auto checkmark = [&](const QColor& ink) {
        QPainterPath tick;
        tick.moveTo(box.left() + side * 0.28, box.top() + side * 0.52);
        tick.lineTo(box.left() + side * 0.44, box.top() + side * 0.67);
        tick.lineTo(box.left() + side * 0.72, box.top() + side * 0.35);
        painter.setPen(QPen(ink, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(tick);
    };

    const auto ring = [&] {
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(box.adjusted(stroke / 2, stroke / 2, -stroke / 2, -stroke / 2));
    };
    const auto at = [&](qreal x, qreal y) { return QPointF(box.left() + side * x, box.top() + side * y); };

    if (name == u"checkmark.circle.fill") {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(box);
        checkmark(Qt::white);
    } else if (name == u"checkmark.circle") {
        ring();
        checkmark(color);
    } else if (name == u"exclamationmark.circle") {
        ring();
        painter.drawLine(at(0.5, 0.28), at(0.5, 0.54));
        painter.drawPoint(at(0.5, 0.72));
    } else if (name == u"clock") {
        ring();
        painter.drawPolyline(QPolygonF{at(0.5, 0.26), at(0.5, 0.5), at(0.68, 0.6)});
    } else if (name == u"chevron.down") {
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(QPolygonF{at(0.22, 0.38), at(0.5, 0.66), at(0.78, 0.38)});
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
        painter.drawArc(box.adjusted(stroke, stroke, -stroke, -stroke), 90 * 16, -270 * 16);
    } else if (name == u"bolt.fill" || name == u"bolt") {
        QPainterPath bolt;
        bolt.moveTo(box.left() + side * 0.58, box.top());
        bolt.lineTo(box.left() + side * 0.2, box.top() + side * 0.56);
        bolt.lineTo(box.left() + side * 0.48, box.top() + side * 0.56);
        bolt.lineTo(box.left() + side * 0.4, box.bottom());
        bolt.lineTo(box.left() + side * 0.8, box.top() + side * 0.42);
        bolt.lineTo(box.left() + side * 0.52, box.top() + side * 0.42);
        bolt.closeSubpath();
        painter.setPen(name == u"bolt" ? QPen(color, stroke / 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                                       : QPen(Qt::NoPen));
        painter.setBrush(name == u"bolt" ? QBrush(Qt::NoBrush) : QBrush(color));
        painter.drawPath(bolt);
    } else {
        return false;
    }
    return true;
}

} // namespace

QString SymbolIcons::themeName(const QString& symbol)
{
    const auto it = symbols().constFind(symbol);
    return it == symbols().cend() ? QString() : QString::fromUtf16(it->themeName);
}

QString SymbolIcons::glyph(const QString& symbol)
{
    const auto it = symbols().constFind(symbol);
    return it == symbols().cend() ? QStringLiteral("•") : QString::fromUtf16(it->glyph);
}

void SymbolIcons::paint(QPainter& painter, const QRectF& rect, const QString& symbol, const QColor& color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = std::min(rect.width(), rect.height());
    const QRectF box(rect.center().x() - side / 2, rect.center().y() - side / 2, side, side);
    if (!paintShape(painter, box, symbol, color)) {
        if (symbols().contains(symbol)) {
            QFont font = painter.font();
            font.setPixelSize(std::max(1, int(side * 0.9)));
            painter.setFont(font);
            painter.setPen(color);
            painter.drawText(box, Qt::AlignCenter, glyph(symbol));
        } else {
            painter.setPen(Qt::NoPen);
            painter.setBrush(color);
            painter.drawEllipse(box.center(), side / 5, side / 5);
        }
    }
    painter.restore();
}

QPixmap SymbolIcons::drawn(const QString& symbol, const QColor& color, int side, qreal pixelRatio)
{
    QPixmap pixmap(QSize(side, side) * pixelRatio);
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(painter, QRectF(1, 1, side - 2, side - 2), symbol, color);
    painter.end();
    return pixmap;
}

QIcon SymbolIcons::icon(const QString& symbol, const QColor& color, int side)
{
    const QString name = themeName(symbol);
    if (!name.isEmpty() && QIcon::hasThemeIcon(name)) {
        return QIcon::fromTheme(name);
    }
    return QIcon(drawn(symbol, color, side));
}

QIcon SymbolIcons::iconRow(const QStringList& symbols, const QColor& color, int side)
{
    QPixmap pixmap(QSize(side * int(symbols.size()), side) * 2);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    for (int index = 0; index < symbols.size(); ++index) {
        icon(symbols.at(index), color, side).paint(&painter, QRect(index * side, 0, side, side));
    }
    painter.end();
    return QIcon(pixmap);
}
