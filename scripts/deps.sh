#!/usr/bin/env bash
# Installs every Debian package the build, the app and the tests need, plus any package named on the
# command line (scripts/tidy.sh adds the clang tools, scripts/fuzz.sh clang-14 and libFuzzer). Idempotent:
# when everything is present it returns without touching apt.
set -euo pipefail

packages=(
    cmake ninja-build g++ pkg-config ccache
    qt6-base-dev qt6-httpserver-dev qcoro-qt6-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    libx11-dev libxtst-dev libxfixes-dev libxrandr-dev libxres-dev libx11-xcb-dev libxcb1-dev
    libxkbcommon-dev libxkbcommon-x11-dev
    libatspi2.0-dev libexttextcat-dev libglib2.0-dev
    xvfb xauth openbox xclip xdotool wmctrl x11-xkb-utils trayer x11-utils
    dbus at-spi2-core gtk-3-examples
    xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils
    "$@"
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}" >&2
sudo_cmd=()
[ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
