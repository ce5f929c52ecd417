#include "panels/views/SymbolIcon.h"

#include "panels/views/ThemePainter.h"

#include <QPainter>
#include <QPixmap>

QIcon SymbolIcon::make(const QString& name, const QColor& color, int size)
{
    // Drawn at twice the size so the icon stays sharp on scaled screens.
    QPixmap pixmap(size * 2, size * 2);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        ThemePainter::paintSymbol(painter, QRectF(2, 2, size * 2 - 4, size * 2 - 4), name, color);
    }
    pixmap.setDevicePixelRatio(2);
    return QIcon(pixmap);
}
