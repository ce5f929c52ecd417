#!/usr/bin/env bash
# Installs what is missing, builds the debug preset and runs every test.
# Tests labelled x11 get a private Xvfb; nothing touches the user's own
# display, settings or clipboard.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake --preset debug >/dev/null
cmake --build --preset debug

sandbox=$(mktemp -d)
trap 'rm -rf "$sandbox"' EXIT
export HOME="$sandbox/home" XDG_CONFIG_HOME="$sandbox/config" XDG_DATA_HOME="$sandbox/data" \
    XDG_CACHE_HOME="$sandbox/cache" XDG_RUNTIME_DIR="$sandbox/runtime"
mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
export QT_QPA_PLATFORM=offscreen

ctest --preset debug -LE x11
# The X11 tests start their own Xvfb and window manager through the wrapper.
QT_QPA_PLATFORM=xcb tests/x11/with-xvfb.sh ctest --preset debug -L x11
