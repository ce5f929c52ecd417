#pragma once

#include <QIcon>
#include <QString>

class QToolButton;
class QWidget;

// The panel's small symbol buttons, drawn (never from the icon theme) in the widget's text colour.
class ClipboardSymbols {
public:
    // A flat button that never takes the keyboard focus, so typing stays in the search field.
    static QToolButton* button(const QString& symbol, QWidget* parent);
    // Sets the symbol of a button made above, in its present text colour (red for a destructive one).
    static void setSymbol(QToolButton* button, const QString& symbol, bool destructive = false);
};
