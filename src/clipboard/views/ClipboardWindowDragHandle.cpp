#include "clipboard/views/ClipboardWindowDragHandle.h"

#include "panels/views/SymbolIcons.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

ClipboardWindowDragHandle::ClipboardWindowDragHandle(QWidget* parent) : QWidget(parent)
{
    setCursor(Qt::OpenHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ClipboardWindowDragHandle::setTitle(const QString& title)
{
    m_title = title;
    update();
}

QSize ClipboardWindowDragHandle::sizeHint() const
{
    return {120, 28};
}

void ClipboardWindowDragHandle::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && window()->windowHandle() != nullptr) {
        window()->windowHandle()->startSystemMove();
        event->accept();
        return;
    }
    QWidget::mousePressEvent(event);
}

void ClipboardWindowDragHandle::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ink = palette().color(QPalette::WindowText);
    QColor grip = ink;
    grip.setAlphaF(0.35f);
    painter.setPen(Qt::NoPen);
    painter.setBrush(grip);
    const qreal middle = height() / 2.0;
    for (int column = 0; column < 2; ++column) {
        for (int row = -1; row <= 1; ++row) {
            painter.drawEllipse(QPointF(4 + column * 5, middle + row * 5), 1.4, 1.4);
        }
    }
    SymbolIcons::paint(painter, QRectF(16, middle - 8, 16, 16), QStringLiteral("clipboard"), ink);
    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QRectF(38, 0, width() - 38, height()), Qt::AlignVCenter | Qt::AlignLeft, m_title);
}
