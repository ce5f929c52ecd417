#pragma once

#include "core/ActionStatus.h"
#include "panels/LazyPanel.h"
#include "panels/StatusHUDSurface.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>

class MivoraAppState;

// Shows the state of a running or finished action in a small overlay, so the user gets feedback with no
// window of this program in front. It has no timer of its own: the overlay stays until the state publishes
// idle. GUI thread.
class StatusHUDController : public QObject {
    Q_OBJECT
public:
    using SurfaceFactory = std::function<std::unique_ptr<StatusHUDSurface>()>;

    // The surface is made on the first status that is not idle and kept for the life of the controller.
    explicit StatusHUDController(SurfaceFactory makeSurface, QObject* parent = nullptr);
    ~StatusHUDController() override;

    // Follows the state's status from now on. Called once at launch.
    void attach(MivoraAppState& appState);
    void show(const ActionStatus& status);
    // Orders the overlay out; it stays made.
    void hide();
    bool isShown() const;

private:
    void statusChanged();

    LazyPanel<StatusHUDSurface> m_surface;
    QPointer<MivoraAppState> m_appState;
};
