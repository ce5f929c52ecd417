#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>

// The program's mark: "AI" above a small keyboard, drawn in one colour so it follows the tray's text colour.
class MenuBarIcon {
public:
    // The mark at size × size pixels on a transparent ground.
    static QImage image(int size, const QColor& ink);
    // The tray and application icon at the usual sizes.
    static QIcon icon(const QColor& ink);
};
