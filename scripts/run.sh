#!/usr/bin/env bash
# Installs what is missing, builds the release preset and starts MivoraAI.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake --preset release >/dev/null
cmake --build --preset release
exec build/release/src/shell/mivora "$@"
