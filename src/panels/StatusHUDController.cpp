#include "panels/StatusHUDController.h"

#include "core/MivoraAppState.h"
#include "core/MivoraSettings.h"
#include "panels/StatusHUDSurface.h"

StatusHUDController::StatusHUDController(SurfaceFactory makeSurface, QObject* parent)
    : QObject(parent), m_makeSurface(std::move(makeSurface))
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
    if (!m_surface) {
        m_surface = m_makeSurface();
    }
    const AppearanceMode appearance =
        m_appState ? m_appState->settings().appearanceMode : MivoraSettings().appearanceMode;
    const SurfaceMode surface = m_appState ? m_appState->systemSurfaceMode() : SurfaceMode::translucent;
    m_surface->present(StatusHUDContent::of(status), appearance, surface);
}

void StatusHUDController::hide()
{
    if (m_surface) {
        m_surface->orderOut();
    }
}

bool StatusHUDController::isShown() const
{
    return m_surface && m_surface->isShown();
}
