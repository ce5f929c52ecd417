#pragma once

#include <QByteArray>
#include <QPoint>
#include <QString>

// Xlib's own declaration, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;

// A window of another program as the X server holds it, found by its title and read back pixel by pixel, so a
// bench times a panel painted rather than merely mapped.

// The id (an Xlib Window) of the viewable window with exactly this title, searched below the window manager's
// frames; 0 when there is none.
unsigned long viewableWindow(Display* display, const QString& title);
// Whether the viewable window with this title is painted: the pixel at probe, on a panel's sheet clear of its
// rounded corners, is no longer the black of a window nothing has drawn on yet.
bool windowPainted(Display* display, const QString& title, QPoint probe = QPoint(60, 12));
// The window's pixels as the server holds them now, 32 bits each; empty when it cannot be read.
QByteArray windowPixels(Display* display, unsigned long window);
// How many pixels two readings of windowPixels() differ in; every pixel of the larger when their sizes
// differ.
qsizetype differingPixels(const QByteArray& one, const QByteArray& other);
