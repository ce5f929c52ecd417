#!/usr/bin/env bash
# Installs what is missing, builds the libFuzzer targets (preset "fuzz") and runs each fuzz_<name> for the given
# seconds on a copy of its seed corpus fuzz/corpus/<name>/, so the committed seeds stay small and hand-made.
# Fails on the first crash, leak, timeout or sanitizer report; the input that broke it is kept in
# build/fuzz/artifacts/. Usage: scripts/fuzz.sh [SECONDS_PER_TARGET] [NAME_REGEX]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-10}
filter=${2:-.}
scripts/deps.sh clang-14 libclang-rt-14-dev libfuzzer-14-dev
werror=OFF
[ "${CI:-}" = "true" ] && werror=ON
cmake --preset fuzz -DMIVORA_WARNINGS_AS_ERRORS=$werror >/dev/null
cmake --build --preset fuzz

sandbox=$(mktemp -d)
trap 'rm -rf "$sandbox"' EXIT
# Whatever a target writes (notes files, settings) lands in the sandbox, never in the user's home.
export HOME="$sandbox/home" XDG_CONFIG_HOME="$sandbox/config" XDG_DATA_HOME="$sandbox/data" \
    XDG_CACHE_HOME="$sandbox/cache" XDG_RUNTIME_DIR="$sandbox/runtime" TMPDIR="$sandbox/tmp"
mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_RUNTIME_DIR" "$TMPDIR"
chmod 700 "$XDG_RUNTIME_DIR"
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS="detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1"
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"

artifacts=build/fuzz/artifacts
mkdir -p "$artifacts"
ran=0
failed=()
for fuzzer in $(find build/fuzz/fuzz -maxdepth 1 -type f -executable -name 'fuzz_*' | sort); do
    name=${fuzzer##*/fuzz_}
    [[ $name =~ $filter ]] || continue
    corpus="$sandbox/corpus/$name"
    mkdir -p "$corpus"
    [ -d "fuzz/corpus/$name" ] && cp -r "fuzz/corpus/$name/." "$corpus/"
    log="$sandbox/$name.log"
    echo "fuzz_$name: ${seconds}s" >&2
    ran=$((ran + 1))
    if ! "$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="$artifacts/$name-" "$corpus" >"$log" 2>&1; then
        tail -60 "$log" >&2
        failed+=("$name")
        continue
    fi
    grep -E "^stat::number_of_executed_units" "$log" | sed "s/^/  /" >&2 || true
done
if [ "$ran" -eq 0 ]; then
    echo "no fuzzer matches '$filter'" >&2
    exit 2
fi
if [ ${#failed[@]} -gt 0 ]; then
    echo "fuzzers that found a fault: ${failed[*]} (inputs in $artifacts/)" >&2
    exit 1
fi
