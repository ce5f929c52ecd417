#pragma once

#include <memory>

class InputSourceProvider;
class SystemSurfaceSignals;

// The implementations of the small platform interfaces for the platform this build is for. Each member is
// non-null unless noted.
struct PlatformServices {
    PlatformServices();
    PlatformServices(PlatformServices&&) noexcept;
    PlatformServices& operator=(PlatformServices&&) noexcept;
    ~PlatformServices();

    std::unique_ptr<InputSourceProvider> inputSources;
    // Null where the platform has no translucency settings.
    std::unique_ptr<SystemSurfaceSignals> surfaceSignals;

    // Connects to the display server when there is one; without one, each service degrades to "nothing
    // available" rather than failing. GUI thread.
    static PlatformServices create();
};
