#include "core/NativeSettingsStore.h"

// Placeholder; filled in by the catalogue and settings-store work.
