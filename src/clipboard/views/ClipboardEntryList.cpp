#include "clipboard/views/ClipboardEntryList.h"

#include "clipboard/ClipboardEntryListModel.h"
#include "clipboard/views/ClipboardEntryDelegate.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

ClipboardEntryList::ClipboardEntryList(QWidget* parent)
    : QListView(parent), m_delegate(new ClipboardEntryDelegate(this))
{
    setItemDelegate(m_delegate);
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setResizeMode(QListView::Adjust);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setAttribute(Qt::WA_TranslucentBackground);
    setStyleSheet(QStringLiteral("QListView { background: transparent; }"));
}

QString ClipboardEntryList::idAt(QPoint pos) const
{
    return indexAt(pos).data(ClipboardEntryListModel::idRole).toString();
}

int ClipboardEntryList::buttonAt(QPoint pos) const
{
    const QModelIndex index = indexAt(pos);
    return index.isValid() ? m_delegate->buttonAt(visualRect(index).adjusted(2, 2, -2, -2), pos) : -1;
}

void ClipboardEntryList::mousePressEvent(QMouseEvent* event)
{
    const QString id = idAt(event->position().toPoint());
    m_pressedId = id;
    m_pressedButton = event->button() == Qt::LeftButton ? buttonAt(event->position().toPoint()) : -1;
    if (!id.isEmpty()) {
        emit entrySelected(id);
    }
    event->accept();
}

void ClipboardEntryList::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    if (m_pressedButton >= 0 && idAt(pos) == m_pressedId && buttonAt(pos) == m_pressedButton) {
        emit buttonClicked(m_pressedId, m_pressedButton);
    }
    m_pressedButton = -1;
    event->accept();
}

void ClipboardEntryList::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    const QString id = idAt(pos);
    if (event->button() == Qt::LeftButton && !id.isEmpty() && buttonAt(pos) < 0) {
        emit entryActivated(id);
    }
    event->accept();
}

void ClipboardEntryList::mouseMoveEvent(QMouseEvent* event)
{
    const QString id = idAt(event->position().toPoint());
    if (!id.isEmpty() && id != m_hoveredId) {
        emit entrySelected(id);
    }
    m_hoveredId = id;
    QListView::mouseMoveEvent(event);
}

void ClipboardEntryList::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    if (m_delegate->availableWidth() != viewport()->width()) {
        // Row heights depend on the width: measure them again.
        m_delegate->setAvailableWidth(viewport()->width());
        scheduleDelayedItemsLayout();
    }
}

bool ClipboardEntryList::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString text = m_delegate->helpOf(buttonAt(help->pos()));
        if (text.isEmpty()) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(), text, viewport());
        }
        return true;
    }
    if (event->type() == QEvent::Leave) {
        m_hoveredId.clear();
    }
    return QListView::viewportEvent(event);
}
