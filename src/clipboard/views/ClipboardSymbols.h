#pragma once

#include <QIcon>
#include <QString>

class QToolButton;
class QWidget;

// The panel's small symbol buttons, drawn by the theme painter in the widget's text colour.
class ClipboardSymbols {
public:
    static QIcon icon(const QString& name, const QColor& color, int side = 16);
    // A flat button that never takes the keyboard focus, so typing stays in the search field.
    static QToolButton* button(const QString& symbol, QWidget* parent);
    // Sets the symbol of a button made above, in its present text colour (red for a destructive one).
    static void setSymbol(QToolButton* button, const QString& symbol, bool destructive = false);
};
