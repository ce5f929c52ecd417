#!/usr/bin/env bash
# Runs a command against a private Xvfb with openbox as the window manager, so X11 tests never touch the
# user's display or clipboard. Usage: with-xvfb.sh COMMAND...
# Nothing sleeps: the server announces its display number when it accepts connections (-displayfd), and the
# window manager announces itself through _NET_SUPPORTING_WM_CHECK on the root window.
set -euo pipefail

ready_timeout=30
work=$(mktemp -d)
cleanup() {
    [ -n "${wm_pid:-}" ] && kill "$wm_pid" 2>/dev/null || true
    [ -n "${xvfb_pid:-}" ] && kill "$xvfb_pid" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

# Xvfb picks a free display number itself and writes it to the pipe once it is ready.
mkfifo "$work/displayfd"
Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp 3>"$work/displayfd" >"$work/xvfb.log" 2>&1 &
xvfb_pid=$!
number=""
read -r -t "$ready_timeout" number <"$work/displayfd" || true
if [ -z "$number" ]; then
    echo "with-xvfb.sh: Xvfb did not announce a display within ${ready_timeout}s:" >&2
    cat "$work/xvfb.log" >&2
    exit 1
fi
export DISPLAY=":$number"

# Watch the root window before starting the window manager, so its announcement cannot be missed. xprop
# prints every property of the root window now and again at each change (the atom does not exist yet, so it
# cannot be named here).
coproc wm_check { exec timeout "$ready_timeout" xprop -root -spy 2>&1; }
wm_check_pid=$wm_check_PID
exec {wm_check_out}<&"${wm_check[0]}"
# Openbox's stock configuration switches desktops on Control+Alt+arrows, the window swap chords; the test
# desktop gives them up, as a user who tiles windows does.
sed '/<keybind key="C-A-\(Left\|Right\|Up\|Down\)">/,/<\/keybind>/d' /etc/xdg/openbox/rc.xml >"$work/rc.xml"
openbox --sm-disable --config-file "$work/rc.xml" >"$work/openbox.log" 2>&1 &
wm_pid=$!
announced=false
while IFS= read -r line <&"$wm_check_out"; do
    if [[ $line == "_NET_SUPPORTING_WM_CHECK(WINDOW): window id #"* ]]; then
        announced=true
        break
    fi
done
kill "$wm_check_pid" 2>/dev/null || true
exec {wm_check_out}<&-
if ! $announced; then
    echo "with-xvfb.sh: openbox did not announce itself on $DISPLAY within ${ready_timeout}s:" >&2
    cat "$work/openbox.log" >&2
    exit 1
fi

"$@"
