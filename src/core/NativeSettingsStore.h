#pragma once

#include "core/DefaultsStore.h"
#include "core/MivoraSettings.h"

// Turns MivoraSettings into "mivora.*" entries of the defaults store and back. Loading never fails: every
// entry has a fallback, and migrations of old data are applied on every load.
class NativeSettingsStore {
public:
    explicit NativeSettingsStore(DefaultsStore& defaults) : m_defaults(defaults) {}

    MivoraSettings load() const;
    // Writes every key in table order; nothing is reported on failure.
    void save(const MivoraSettings& settings);

private:
    DefaultsStore& m_defaults;
};
