#include "panels/StatusHUDController.h"

#include "core/MivoraAppState.h"
#include "core/MivoraSettings.h"
#include "panels/StatusHUDSurface.h"

StatusHUDController::StatusHUDController(SurfaceFactory makeSurface, QObject* parent)
    : QObject(parent), m_surface(std::move(makeSurface))
{}

StatusHUDController::~StatusHUDController() = default;

void StatusHUDController::attach(MivoraAppState& appState)
{
    if (m_appState) {
        disconnect(m_appState, nullptr, this, nullptr);
    }
    m_appState = &appState;
    connect(&appState, &MivoraAppState::statusChanged, this, &StatusHUDController::statusChanged);
}

void StatusHUDController::statusChanged()
{
    if (!m_appState) {
        return;
    }
    const ActionStatus& status = m_appState->status();
    if (status.kind == ActionStatus::Kind::idle) {
        hide();
    } else {
        show(status);
    }
}

void StatusHUDController::show(const ActionStatus& status)
{
    const AppearanceMode appearance =
        m_appState ? m_appState->settings().appearanceMode : MivoraSettings().appearanceMode;
    const SurfaceMode surface = m_appState ? m_appState->systemSurfaceMode() : SurfaceMode::translucent;
    m_surface.get().present(StatusHUDContent::of(status), appearance, surface);
}

void StatusHUDController::hide()
{
    if (StatusHUDSurface* surface = m_surface.ifMade()) {
        surface->orderOut();
    }
}

bool StatusHUDController::isShown() const
{
    const StatusHUDSurface* surface = m_surface.ifMade();
    return surface != nullptr && surface->isShown();
}
