#include "clipboard/views/ClipboardSymbols.h"

#include "panels/views/ThemePainter.h"

#include <QPainter>
#include <QPixmap>
#include <QToolButton>

QIcon ClipboardSymbols::icon(const QString& name, const QColor& color, int side)
{
    QPixmap pixmap(side * 2, side * 2);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    ThemePainter::paintSymbol(painter, QRectF(1, 1, side - 2, side - 2), name, color);
    return QIcon(pixmap);
}

QToolButton* ClipboardSymbols::button(const QString& symbol, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setIconSize(QSize(16, 16));
    setSymbol(button, symbol);
    return button;
}

void ClipboardSymbols::setSymbol(QToolButton* button, const QString& symbol, bool destructive)
{
    const QColor ink = destructive ? QColor(220, 60, 50) : button->palette().color(QPalette::ButtonText);
    button->setIcon(icon(symbol, ink));
}
