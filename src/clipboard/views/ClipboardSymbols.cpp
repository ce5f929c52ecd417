#include "clipboard/views/ClipboardSymbols.h"

#include "panels/views/SymbolIcons.h"

#include <QToolButton>

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
    button->setIcon(QIcon(SymbolIcons::drawn(symbol, ink, 16)));
}
