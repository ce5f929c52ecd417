#pragma once

#include "platform/SystemSurfaceSignals.h"

// The system's accessibility display option for transparency and the glass diffusion setting, read from the
// workspace and the user defaults anew at each call, so a change in System Settings is followed at the next
// check.
class MacSurfaceSignals : public SystemSurfaceSignals {
public:
    bool reduceTransparency() const override;
    std::optional<int> processGlassDiffusion() const override;
    std::optional<int> globalGlassDiffusion() const override;
};
