#pragma once

#include "core/MivoraAppState.h"
#include "panels/FloatingButtonSurface.h"
#include "panels/LazyPanel.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <functional>
#include <memory>

class QuickPanelController;

// The small button shown near the pointer when text has been selected elsewhere; a click on it opens the
// quick panel. It never takes the focus. Its window is made on the first show and only hidden after. GUI
// thread.
class FloatingButtonController : public QObject {
    Q_OBJECT
public:
    using SurfaceFactory = std::function<std::unique_ptr<FloatingButtonSurface>(FloatingButtonController&)>;

    static constexpr QSize buttonSize{54, 54};

    explicit FloatingButtonController(SurfaceFactory makeSurface, QObject* parent = nullptr);
    ~FloatingButtonController() override;

    // Shows the button while the setting allows it (hides it otherwise); a shown button stays in place.
    void show(MivoraAppState& appState, QuickPanelController& quickPanel);
    void hide();
    bool isVisible() const;
    // The button's click: hides it and opens the quick panel.
    void click();

    // Beside the pointer, kept 12 px inside the visible area; top-left, y-down coordinates.
    static QPoint positionNearMouse(QPoint pointer, QRect visibleArea, QSize button);

private:
    LazyPanel<FloatingButtonSurface> m_surface;
    QPointer<MivoraAppState> m_appState;
    QPointer<QuickPanelController> m_quickPanel;
};
