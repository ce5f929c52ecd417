#pragma once

#include <memory>

// Opaque handle to one platform input source. Only the provider that listed it can read it; holding it keeps
// the platform object alive (on macOS a retained TISInputSourceRef, on X11 a keymap snapshot and a group).
using InputSourceRef = std::shared_ptr<const void>;
