#!/usr/bin/env bash
# Compile-checks every macOS adapter (src/platform/mac/*.mm) on a machine without an Apple SDK: clang parses
# each file as Objective-C++ with ARC against the declarations in tools/apple-api, written from Apple's
# documentation. A .mm that no longer matches its C++ interface, a misspelled selector or a wrong bridge
# cast fails here. Syntax only: nothing is linked or run.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh clang-14 >/dev/null

qt=$(pkg-config --variable=includedir Qt6Core 2>/dev/null || echo /usr/include/x86_64-linux-gnu/qt6)
flags=(-x objective-c++ -std=c++20 -fsyntax-only -fobjc-arc -fblocks -fobjc-runtime=macosx
    -Wall -Wextra -Werror
    -isystem tools/apple-api
    -isystem "$qt" -isystem "$qt/QtCore" -isystem "$qt/QtGui" -isystem "$qt/QtWidgets" -isystem "$qt/QtNetwork"
    -isystem /usr/include/qcoro6 -isystem /usr/include/qcoro6/qcoro
    -I src -fPIC)

status=0
for file in src/platform/mac/*.mm; do
    if ! clang++-14 "${flags[@]}" "$file"; then
        echo "check-mac: $file does not compile against the documented API" >&2
        status=1
    fi
done
exit $status
