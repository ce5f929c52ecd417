#include "panels/views/ResizableKeyPanel.h"

#include "platform/FloatingWindowTraits.h"

#include <QSizeGrip>

ResizableKeyPanel::ResizableKeyPanel(const QString& title, QSize minimum, QSize size,
                                     std::function<void(QSize)> saveSize, FloatingWindowTraits* windowTraits,
                                     QWidget* parent)
    : FloatingPanel({title, Role::keyPanel, 16}, windowTraits, parent), m_traits(windowTraits),
      m_saveSize(std::move(saveSize)), m_sizeGrip(new QSizeGrip(this))
{
    setMinimumSize(minimum);
    resize(size);
    // Frameless, so the corner grip is how the user resizes it.
    m_sizeGrip->resize(14, 14);
}

void ResizableKeyPanel::present()
{
    if (!isVisible()) {
        showNearMouse();
        return;
    }
    raise();
    activateWindow();
    if (m_traits != nullptr) {
        m_traits->activate(winId());
    }
}

void ResizableKeyPanel::resizeEvent(QResizeEvent* event)
{
    FloatingPanel::resizeEvent(event);
    m_sizeGrip->move(width() - m_sizeGrip->width() - 4, height() - m_sizeGrip->height() - 4);
    m_sizeGrip->raise();
    if (isVisible() && m_saveSize) {
        m_saveSize(size());
    }
}
