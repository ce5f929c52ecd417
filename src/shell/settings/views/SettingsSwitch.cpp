#include "shell/settings/views/SettingsSwitch.h"

#include <QPainter>
#include <QSignalBlocker>

SettingsSwitch::SettingsSwitch(QWidget* parent) : QAbstractButton(parent)
{
    setCheckable(true);
    setCursor(Qt::PointingHandCursor);
    setFixedSize(sizeHint());
}

void SettingsSwitch::setCheckedQuietly(bool checked)
{
    const QSignalBlocker blocker(this);
    setChecked(checked);
}

void SettingsSwitch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track = QRectF(rect()).adjusted(1, 1, -1, -1);
    const qreal radius = track.height() / 2;
    QColor off = palette().color(QPalette::WindowText);
    off.setAlpha(70);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? palette().color(QPalette::Highlight) : off);
    painter.drawRoundedRect(track, radius, radius);
    const qreal knob = track.height() - 4;
    const qreal x = isChecked() ? track.right() - 2 - knob : track.left() + 2;
    painter.setBrush(isEnabled() ? QColor(Qt::white) : QColor(220, 220, 220));
    painter.drawEllipse(QRectF(x, track.top() + 2, knob, knob));
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius + 1, radius + 1);
    }
}
