#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QLabel;
class QLayout;
class QWidget;

// The small parts the settings pages share.

// The icon of a symbol the settings pages name ("trash", "checkmark.circle.fill"…): drawn by the shared
// painter where it knows the symbol, else the desktop theme's icon for it, else a plain glyph in ink.
QIcon settingsSymbol(const QString& name, const QColor& ink, int size = 16);
// A note under a control: wrapped, a little smaller than the text around it.
QLabel* makeNote(QWidget* parent);
// Takes every row out of layout. A row may be the sender of the signal being handled, so each goes once
// control is back in the event loop.
void discardRows(QLayout* layout);
