#pragma once

#include "panels/StatusHUDSurface.h"
#include "panels/views/FloatingPanel.h"

// The status overlay: 260 × 72, centred at the bottom of the primary screen's available area, above other
// windows, never focused, skipped by taskbars and pagers.
class StatusHUDPanel : public FloatingPanel, public StatusHUDSurface {
    Q_OBJECT
public:
    explicit StatusHUDPanel(FloatingWindowTraits* windowTraits = nullptr, QWidget* parent = nullptr);

    void present(const StatusHUDContent& content, AppearanceMode appearance, SurfaceMode surface) override;
    void orderOut() override { hide(); }
    bool isShown() const override { return isVisible(); }

    // The point size the text is drawn at and whether it must still be cut: it shrinks to at most 0.82 of
    // its size before it is cut.
    static std::pair<qreal, bool> fittedTextSize(qreal naturalWidth, qreal availableWidth, qreal pointSize);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect textRect() const;

    StatusHUDContent m_content;
};
