#include "shell/settings/views/SettingsCard.h"

#include "panels/views/ThemePainter.h"

#include <QPainter>
#include <QVBoxLayout>

SettingsCard::SettingsCard(QWidget* parent) : QFrame(parent)
{
    m_rows = new QVBoxLayout(this);
    m_rows->setContentsMargins(14, 12, 14, 12);
    m_rows->setSpacing(10);
}

void SettingsCard::addRow(QWidget* row)
{
    m_rows->addWidget(row);
}

void SettingsCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool dark = ThemePainter::schemeOf(palette()) == ColorScheme::dark ||
                      palette().color(QPalette::WindowText).lightness() > 160;
    painter.setPen(QColor(dark ? 255 : 0, dark ? 255 : 0, dark ? 255 : 0, dark ? 40 : 28));
    painter.setBrush(QColor(dark ? 255 : 0, dark ? 255 : 0, dark ? 255 : 0, dark ? 22 : 10));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 10, 10);
}
