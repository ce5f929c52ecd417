#!/usr/bin/env bash
# Renders the main window (General page and the other pages built so far), the tray menu and the status
# overlay in English and Russian on a private X server with a tray host, into docs/screenshots/. Needs a debug build (scripts/test.sh makes one).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
for tool in import trayer; do
    command -v "$tool" >/dev/null || { sudo_cmd=(); [ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo);
        "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends imagemagick trayer >/dev/null; }
done
binary=build/debug/src/shell/mivora
[ -x "$binary" ] || { echo "screenshots.sh: build first (scripts/test.sh)" >&2; exit 1; }
mkdir -p docs/screenshots

if [ -z "${MIVORA_SHOTS_INSIDE:-}" ]; then
    exec env MIVORA_SHOTS_INSIDE=1 QT_QPA_PLATFORM=xcb tests/x11/with-xvfb.sh "$0"
fi

# One language at a time, each with a fresh private home so nothing of the user's is read or written.
shoot() {
    local language=$1
    local home
    home=$(mktemp -d)
    export HOME=$home/home XDG_CONFIG_HOME=$home/config XDG_DATA_HOME=$home/data XDG_RUNTIME_DIR=$home/run
    mkdir -p "$HOME" "$XDG_CONFIG_HOME/MivoraAI" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
    chmod 700 "$XDG_RUNTIME_DIR"
    # A hotkey text that cannot be read makes the overlay show a failure at start.
    printf '[General]\nmivora.uiLanguage=%s\nmivora.layoutHotkey=Alt+Nope\nmivora.updates.automaticChecksEnabled=false\n' \
        "$language" >"$XDG_CONFIG_HOME/MivoraAI/mivora.conf"
    "$binary" >/dev/null 2>&1 &
    local app=$!
    sleep 1
    import -window root -crop 380x130+610+800 "docs/screenshots/overlay-$language.png"
    sleep 2
    local window
    window=$(xdotool search --onlyvisible --name '^MivoraAI$' | head -1)
    import -window "$window" "docs/screenshots/main-window-$language.png"
    # Each page by a click on its sidebar row (rows of 34 pixels under an 8-pixel margin), in a taller window.
    xdotool windowsize "$window" 900 900
    sleep 0.5
    local row page
    for row in 1:actions 2:styles 3:ai-reply 4:quick-menu 8:shortcuts; do
        page=${row#*:}
        xdotool mousemove --window "$window" 100 $((8 + 34 * ${row%%:*} + 17)) click 1
        sleep 0.7
        import -window "$window" "docs/screenshots/page-$page-$language.png"
    done
    xdotool mousemove --window "$window" 100 25 click 1
    # The tray icon sits at the top right; a click opens its menu.
    xdotool mousemove 1588 12 click 1
    sleep 1
    import -window root -crop 260x260+1340+0 "docs/screenshots/tray-menu-$language.png"
    xdotool key Escape
    kill "$app"
    wait "$app" 2>/dev/null || true
    rm -rf "$home"
}

trayer --edge top --align right --widthtype request --height 24 --transparent false --tint 0x303030 \
    >/dev/null 2>&1 &
tray=$!
sleep 1
shoot en
shoot ru
kill "$tray"
echo "screenshots.sh: wrote docs/screenshots/"
