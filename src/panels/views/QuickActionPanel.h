#pragma once

#include "core/MivoraAppState.h"
#include "panels/QuickPanelSurface.h"
#include "panels/views/FloatingPanel.h"

#include <QPointer>

class QuickPanelController;
class QVBoxLayout;

// The quick panel: the "MivoraAI" header and one row per configured action, in their order, on a sheet that
// never takes the focus and moves when dragged by its background.
class QuickActionPanel : public FloatingPanel, public QuickPanelSurface {
    Q_OBJECT
public:
    // Made by the controller on its first show, so its state is known.
    QuickActionPanel(QuickPanelController& controller, FloatingWindowTraits* windowTraits,
                     QWidget* parent = nullptr);

    void orderFront(bool placeNearMouse) override;
    void orderOut() override { hide(); }
    bool isShown() const override { return isVisible(); }
    const void* windowIdentity() const override { return static_cast<const QWidget*>(this); }

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void rebuildRows();

    QuickPanelController& m_controller;
    QPointer<MivoraAppState> m_appState;
    QVBoxLayout* m_rows = nullptr;
};
