#!/usr/bin/env bash
# Runs a command against a private Xvfb with openbox as the window manager, so X11 tests never touch the
# user's display or clipboard. Usage: with-xvfb.sh COMMAND...
set -euo pipefail

for n in $(seq 90 140); do
    if [ ! -e "/tmp/.X11-unix/X$n" ] && [ ! -e "/tmp/.X$n-lock" ]; then
        display=":$n"
        break
    fi
done
: "${display:?no free X display number}"

Xvfb "$display" -screen 0 1600x1000x24 -nolisten tcp >/dev/null 2>&1 &
xvfb_pid=$!
cleanup() {
    [ -n "${wm_pid:-}" ] && kill "$wm_pid" 2>/dev/null || true
    kill "$xvfb_pid" 2>/dev/null || true
    wait 2>/dev/null || true
}
trap cleanup EXIT

export DISPLAY="$display"
for _ in $(seq 1 100); do
    xdpyinfo >/dev/null 2>&1 && break
    xset q >/dev/null 2>&1 && break
    [ -e "/tmp/.X11-unix/X${display#:}" ] && break
    sleep 0.05
done
openbox --sm-disable >/dev/null 2>&1 &
wm_pid=$!
sleep 0.3

"$@"
