#include "shell/views/MenuBarIcon.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>

namespace {

// The drawing is laid out on an 18-unit square with the origin at the bottom left.
constexpr qreal side = 18;

struct KeyRow {
    std::initializer_list<qreal> xs;
    qreal y;
    qreal width;
    qreal height;
};

} // namespace

QImage MenuBarIcon::image(int size, const QColor& ink)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.scale(size / side, size / side);
    // From the bottom-left origin of the layout to the painter's top-left one.
    const auto box = [](qreal x, qreal y, qreal width, qreal height) {
        return QRectF(x, side - y - height, width, height);
    };

    QFont font;
    font.setWeight(QFont::Black);
    font.setPixelSize(9);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(box(1.2, 8.1, 15.6, 8.8), Qt::AlignCenter, QStringLiteral("AI"));

    const KeyRow rows[] = {
        {{3.5, 5.98, 8.46, 10.94, 13.42}, 6.0, 1.9, 1.32},
        {{4.55, 7.03, 9.51, 11.99}, 4.15, 1.9, 1.32},
        {{4.7}, 2.25, 8.6, 1.28},
    };
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (const KeyRow& row : rows) {
        for (const qreal x : row.xs) {
            painter.drawRoundedRect(box(x, row.y, row.width, row.height), 0.34, 0.34);
        }
    }
    return image;
}

QIcon MenuBarIcon::icon(const QColor& ink)
{
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(QPixmap::fromImage(image(size, ink)));
    }
    return icon;
}
