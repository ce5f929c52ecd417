#pragma once

#include "platform/SystemSurfaceSignals.h"

typedef struct _XDisplay Display;

// Translucency on X11 needs a compositing manager: without one, transparent pixels show black. So the
// platform asks for solid surfaces exactly while nobody owns the _NET_WM_CM_S<screen> selection; asked anew
// at each check, so starting or stopping a compositor is followed live.
class X11CompositorSurfaceSignals : public SystemSurfaceSignals {
public:
    // The display must outlive this object; null means no compositor.
    explicit X11CompositorSurfaceSignals(Display* display);

    // One round trip to the server.
    bool reduceTransparency() const override;
    std::optional<int> processGlassDiffusion() const override { return std::nullopt; }
    std::optional<int> globalGlassDiffusion() const override { return std::nullopt; }

private:
    Display* m_display;
    unsigned long m_selection = 0;
};
