#pragma once

#include "FakeInputSourceProvider.h"
#include "FakeTextActionService.h"
#include "FakeTextExchange.h"
#include "MemoryDefaultsStore.h"
#include "TestClock.h"
#include "core/MivoraAppState.h"
#include "core/NativeSettingsStore.h"
#include "text/KeyboardLayoutService.h"

#include <functional>

// A real application state on virtual time, with the backend, the other application and the input
// sources scripted. Tests that link mivora_state derive their fixtures from it.
class AppStateHarness {
protected:
    // Applies edit to a copy of the settings and assigns it, as the settings window would.
    void configure(const std::function<void(MivoraSettings&)>& edit)
    {
        MivoraSettings settings = state.settings();
        edit(settings);
        state.setSettings(settings);
    }

    TestClock clock;
    MemoryDefaultsStore defaults;
    NativeSettingsStore store{defaults};
    FakeInputSourceProvider sources;
    KeyboardLayoutService layout{sources};
    FakeTextActionService backend{clock};
    FakeTextExchange exchange{clock};
    MivoraAppState state{{clock, store, layout, backend, exchange}};
};
