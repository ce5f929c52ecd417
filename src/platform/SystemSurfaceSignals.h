#pragma once

#include <optional>

// The platform's wishes about translucent surfaces. Platforms without such settings answer false/nullopt.
class SystemSurfaceSignals {
public:
    virtual ~SystemSurfaceSignals() = default;

    // The accessibility setting that asks for less transparency. GUI thread; non-blocking.
    virtual bool reduceTransparency() const = 0;
    // The glass diffusion setting of this process's own defaults, if one is stored. GUI thread; non-blocking.
    virtual std::optional<int> processGlassDiffusion() const = 0;
    // The same setting in the global domain, if one is stored. GUI thread; non-blocking.
    virtual std::optional<int> globalGlassDiffusion() const = 0;
};
