#pragma once

#include "panels/FloatingButtonSurface.h"
#include "panels/views/FloatingPanel.h"

#include <QPoint>

class FloatingButtonController;

// The 54 × 54 button with a yellow bolt that appears near the pointer over a fresh selection. It never takes
// the focus; a click opens the quick panel, a drag moves it.
class FloatingButtonPanel : public FloatingPanel, public FloatingButtonSurface {
    Q_OBJECT
public:
    FloatingButtonPanel(FloatingButtonController& controller, FloatingWindowTraits* windowTraits,
                        QWidget* parent = nullptr);

    void orderFront(bool placeNearMouse) override;
    void orderOut() override { hide(); }
    bool isShown() const override { return isVisible(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    FloatingButtonController& m_controller;
    std::optional<QPoint> m_pressedAt;
};
