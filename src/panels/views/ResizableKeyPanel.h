#pragma once

#include "panels/KeyPanelSurface.h"
#include "panels/views/FloatingPanel.h"

#include <functional>

class QSizeGrip;

// A floating panel the user types into: resized from its corner grip, each new size reported, and brought
// up beside the pointer only when it was hidden; a shown one keeps its place.
class ResizableKeyPanel : public FloatingPanel, public KeyPanelSurface {
    Q_OBJECT
public:
    // windowTraits may be null; saveSize gets every size the shown panel takes.
    ResizableKeyPanel(const QString& title, QSize minimum, QSize size, std::function<void(QSize)> saveSize,
                      FloatingWindowTraits* windowTraits, QWidget* parent = nullptr);

    void present() override;
    void orderOut() override { hide(); }
    bool isShown() const override { return isVisible(); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    FloatingWindowTraits* m_traits;
    std::function<void(QSize)> m_saveSize;
    QSizeGrip* m_sizeGrip;
};
