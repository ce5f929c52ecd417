#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QString>
#include <QStringList>

class QPainter;

// The one table from the program's symbol names ("bolt.fill", "clipboard", "sparkles"…) to what a Linux
// desktop can show: a freedesktop icon-theme name, and a drawing in one colour that needs nothing but the
// fonts every system has. Every panel asks here, so each symbol has an icon everywhere. GUI thread.
class SymbolIcons {
public:
    // The icon-theme name for the symbol; empty for a symbol the table does not know.
    static QString themeName(const QString& symbol);
    // The character drawn for the symbol when no shape of its own is drawn; a dot for unknown symbols.
    static QString glyph(const QString& symbol);
    // Draws the symbol in one colour, centred in rect; unknown names give a plain dot, never a hole.
    static void paint(QPainter& painter, const QRectF& rect, const QString& symbol, const QColor& color);
    // The drawing alone in color, side pixels square with a pixel of air around it, at the given pixel ratio.
    static QPixmap drawn(const QString& symbol, const QColor& color, int side, qreal pixelRatio = 2);
    // The theme's icon when the current theme has one, otherwise the drawing in color at side pixels.
    static QIcon icon(const QString& symbol, const QColor& color, int side);
    // The symbols' icons side by side in one, each side pixels square: a control that shows two symbols.
    static QIcon iconRow(const QStringList& symbols, const QColor& color, int side);
};
