#pragma once

class QLabel;
class QLayout;
class QWidget;

// The small parts the settings pages share.

// A note under a control: wrapped, a little smaller than the text around it.
QLabel* makeNote(QWidget* parent);
// Takes every row out of layout. A row may be the sender of the signal being handled, so each goes once
// control is back in the event loop.
void discardRows(QLayout* layout);
