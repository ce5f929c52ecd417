#pragma once

#include "core/MivoraAppState.h"

#include <utility>

// One edit of the settings as a page makes it: change a copy, assign it whole (one save, one announcement).
template <typename Change> void editSettings(MivoraAppState& state, Change&& change)
{
    MivoraSettings settings = state.settings();
    std::forward<Change>(change)(settings);
    state.setSettings(std::move(settings));
}
