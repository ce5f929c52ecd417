#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over every source file under src/, from the compile commands
# of the "tidy" preset (configured with clang, not built). Prints each finding once and a count per check;
# exits 1 when there is any finding. Usage: scripts/tidy.sh [BUILD_DIR] [FILE_REGEX]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=${1:-build/tidy}
files=${2:-$root/src/}
scripts/deps.sh clang clang-tidy clang-tools
# The preset's global autogen target runs moc (and uic, once views use it) for every library without
# compiling anything.
cmake --preset tidy -B "$build" >/dev/null
log=$(mktemp)
cmake --build "$build" --target autogen >"$log" 2>&1 || { tail -30 "$log" >&2; rm -f "$log"; exit 2; }
rm -f "$log"

report=$(mktemp)
trap 'rm -f "$report"' EXIT
# run-clang-tidy fails only when clang-tidy cannot parse a file; findings are counted below.
# It colours its output whatever the terminal, so the escapes are stripped.
run-clang-tidy -quiet -p "$build" -j "$(nproc)" "$files" 2>/dev/null | sed -E 's/\x1b\[[0-9;]*m//g' >"$report" || {
    grep -E "error:" "$report" | sort -u >&2
    echo "clang-tidy could not process every file" >&2
    exit 2
}
findings=$(grep -E "^$root/.*: warning: .*\[[a-z0-9.,-]+\]$" "$report" | sort -u || true)
if [ -z "$findings" ]; then
    echo "clang-tidy: no findings"
    exit 0
fi
echo "$findings"
echo
echo "clang-tidy: $(echo "$findings" | wc -l) findings"
echo "$findings" | sed -E 's/.*\[([a-z0-9.,-]+)\]$/\1/' | sort | uniq -c | sort -rn
exit 1
