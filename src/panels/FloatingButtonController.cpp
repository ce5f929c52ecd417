#include "panels/FloatingButtonController.h"

#include "core/MivoraAppState.h"
#include "panels/QuickPanelController.h"

#include <algorithm>

FloatingButtonController::FloatingButtonController(SurfaceFactory makeSurface, QObject* parent)
    : QObject(parent), m_surface([this, make = std::move(makeSurface)] { return make(*this); })
{}

FloatingButtonController::~FloatingButtonController() = default;

void FloatingButtonController::show(MivoraAppState& appState, QuickPanelController& quickPanel)
{
    if (!appState.settings().floatingButtonVisible) {
        hide();
        return;
    }
    m_appState = &appState;
    m_quickPanel = &quickPanel;
    const bool wasVisible = isVisible();
    m_surface.get().orderFront(!wasVisible);
}

void FloatingButtonController::hide()
{
    if (FloatingButtonSurface* surface = m_surface.ifMade()) {
        surface->orderOut();
    }
}

bool FloatingButtonController::isVisible() const
{
    const FloatingButtonSurface* surface = m_surface.ifMade();
    return surface != nullptr && surface->isShown();
}

void FloatingButtonController::click()
{
    hide();
    if (m_appState && m_quickPanel) {
        m_quickPanel->show(*m_appState);
    }
}

QPoint FloatingButtonController::positionNearMouse(QPoint pointer, QRect visibleArea, QSize button)
{
    // The button sits up and to the right of the pointer, clear of the text just selected; the far margins
    // win on the way in so it never leaves the visible area.
    const int right = visibleArea.x() + visibleArea.width();
    const int bottom = visibleArea.y() + visibleArea.height();
    const int x = std::min(std::max(pointer.x() + 12, visibleArea.x() + 12), right - button.width() - 12);
    const int y = std::min(std::max(pointer.y() - 8 - button.height(), visibleArea.y() + 12),
                           bottom - button.height() - 12);
    return {x, y};
}
