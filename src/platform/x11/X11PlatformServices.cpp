#include "platform/InputSourceProvider.h"
#include "platform/PlatformServices.h"
#include "platform/SystemSurfaceSignals.h"
#include "platform/x11/X11InputSources.h"

PlatformServices::PlatformServices() = default;
PlatformServices::PlatformServices(PlatformServices&&) noexcept = default;
PlatformServices& PlatformServices::operator=(PlatformServices&&) noexcept = default;
PlatformServices::~PlatformServices() = default;

PlatformServices PlatformServices::create()
{
    PlatformServices services;
    services.inputSources = std::make_unique<X11InputSources>();
    // X11 desktops have no system-wide wish for solid surfaces; panels stay translucent.
    return services;
}
