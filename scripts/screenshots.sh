#!/usr/bin/env bash
# Renders the main window (the General page and every other page), the tray menu and the status overlay in
# English and Russian on a private X server with a tray host, into docs/screenshots/. Needs a debug build
# (scripts/test.sh makes one).
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

# The Clipboard, Layout, Permissions and Updates pages of the main window, each picked in the sidebar. The
# private home holds two clipboard items, two per-application rules, and an update server on the loopback
# interface that offers a newer version, so every part of those pages shows.
shoot_pages() {
    local language=$1
    local home
    home=$(mktemp -d)
    export HOME=$home/home XDG_CONFIG_HOME=$home/config XDG_DATA_HOME=$home/data XDG_RUNTIME_DIR=$home/run
    mkdir -p "$HOME" "$XDG_CONFIG_HOME/MivoraAI" "$XDG_DATA_HOME/applications" "$XDG_RUNTIME_DIR" \
        "$home/server/macos/app"
    chmod 700 "$XDG_RUNTIME_DIR"
    printf '{"ok":true,"update_available":true,"latest_version":"1.4.0","latest_build":140,"download_url":"https://example.com/mivora.deb","release_notes":{"en":"Faster layout fix.\\nClipboard history with put-back.","ru":"Быстрее исправление раскладки.\\nИстория буфера с возвратом."}}' \
        >"$home/server/macos/app/version"
    (cd "$home/server" && exec python3 -m http.server 8765 --bind 127.0.0.1) >/dev/null 2>&1 &
    local server=$!
    for _ in $(seq 50); do
        (exec 3<>/dev/tcp/127.0.0.1/8765) 2>/dev/null && break
        sleep 0.1
    done
    local now
    now=$(( $(date +%s) - 978307200 ))
    cat >"$XDG_CONFIG_HOME/MivoraAI/mivora.conf" <<CONF
[General]
mivora.uiLanguage=$language
mivora.updates.baseURL=http://127.0.0.1:8765
mivora.updates.automaticChecksEnabled=true
mivora.updates.notificationsEnabled=false
mivora.appLayoutSwitching.enabled=true
mivora.appLayoutSwitching.rules="@ByteArray([{\"id\":\"6f1c1d8e-4a43-4d55-9a57-0d1c6f1e2a01\",\"bundleIdentifier\":\"Vim\",\"appName\":\"Vim\",\"appPath\":\"/usr/share/applications/vim.desktop\",\"layoutName\":\"English (US)\",\"isEnabled\":true},{\"id\":\"6f1c1d8e-4a43-4d55-9a57-0d1c6f1e2a02\",\"bundleIdentifier\":\"Openbox\",\"appName\":\"Openbox\",\"appPath\":\"/usr/share/applications/openbox.desktop\",\"layoutName\":\"Russian\",\"isEnabled\":false}])"
mivora.clipboardItems.native="@ByteArray([{\"id\":\"1-1\",\"text\":\"Meeting moved to 15:30, room 4\",\"createdAt\":$now,\"chars\":30},{\"id\":\"1-2\",\"text\":\"https://example.com/report\",\"createdAt\":$now,\"chars\":26}])"
CONF
    setxkbmap -layout us,ru
    "$binary" >/dev/null 2>&1 &
    local app=$!
    local window
    for _ in $(seq 50); do
        window=$(xdotool search --onlyvisible --name '^MivoraAI$' 2>/dev/null | head -1) && [ -n "$window" ] && break
        sleep 0.1
    done
    sleep 1
    xdotool windowsize "$window" 900 900
    sleep 0.5
    local page
    for page in clipboard:5 layout:6 permissions:7 updates:9; do
        # Sidebar rows are 34 pixels high below an 8-pixel margin.
        xdotool mousemove --window "$window" 110 $((8 + 34 * ${page#*:} + 17)) click 1
        sleep 0.5
        import -window "$window" "docs/screenshots/page-${page%:*}-$language.png"
    done
    kill "$app" "$server"
    wait "$app" "$server" 2>/dev/null || true
    rm -rf "$home"
}

trayer --edge top --align right --widthtype request --height 24 --transparent false --tint 0x303030 \
    >/dev/null 2>&1 &
tray=$!
sleep 1
shoot en
shoot ru
kill "$tray"
shoot_pages en
shoot_pages ru
echo "screenshots.sh: wrote docs/screenshots/"
