#include "panels/views/FloatingButtonPanel.h"

#include "panels/FloatingButtonController.h"
#include "panels/views/SymbolIcons.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

namespace {
constexpr qreal cornerRadius = 21;
constexpr qreal boltSide = 20;
// Further than this from the press, the gesture is a drag and moves the button instead of clicking it.
constexpr int dragDistance = 4;
} // namespace

FloatingButtonPanel::FloatingButtonPanel(FloatingButtonController& controller,
                                         FloatingWindowTraits* windowTraits, QWidget* parent)
    : FloatingPanel({QStringLiteral("MivoraAI button"), Role::nonActivatingPanel, cornerRadius}, windowTraits,
                    parent),
      m_controller(controller)
{
    setFixedSize(FloatingButtonController::buttonSize);
    setCursor(Qt::PointingHandCursor);
}

void FloatingButtonPanel::orderFront(bool placeNearMouse)
{
    if (placeNearMouse) {
        const QPoint pointer = QCursor::pos();
        const QScreen* screen = QGuiApplication::screenAt(pointer);
        if (screen == nullptr) {
            screen = QGuiApplication::primaryScreen();
        }
        const QRect area = screen != nullptr ? screen->availableGeometry() : QRect(QPoint(), size());
        move(FloatingButtonController::positionNearMouse(pointer, area, size()));
    }
    show();
    raise();
}

void FloatingButtonPanel::paintEvent(QPaintEvent* event)
{
    FloatingPanel::paintEvent(event);
    QPainter painter(this);
    const QRectF bolt((width() - boltSide) / 2, (height() - boltSide) / 2, boltSide, boltSide);
    SymbolIcons::paint(painter, bolt, QStringLiteral("bolt.fill"), QColor(255, 204, 0));
}

void FloatingButtonPanel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressedAt = event->globalPosition().toPoint();
    }
}

void FloatingButtonPanel::mouseMoveEvent(QMouseEvent* event)
{
    if (m_pressedAt && (event->globalPosition().toPoint() - *m_pressedAt).manhattanLength() > dragDistance &&
        windowHandle() != nullptr) {
        m_pressedAt.reset();
        windowHandle()->startSystemMove();
    }
}

void FloatingButtonPanel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_pressedAt) {
        m_pressedAt.reset();
        m_controller.click();
    }
}
