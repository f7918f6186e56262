#!/usr/bin/env bash
# Fuzzes the script interpreter (parser and evaluator, with a step limit) for the given
# number of seconds (60 unless told), starting from the conformance scripts. Builds the
# "fuzz" preset first. Exits non-zero on any crash or hang; libFuzzer leaves the input
# that found it in build/fuzz/findings-script/.
#
# Leaks are not checked: values count references, so a script that makes an array hold
# itself keeps it alive, which is the language's rule, not a fault of the interpreter.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds="${1:-60}"

cmake --preset fuzz
cmake --build --preset fuzz --target script_fuzz

corpus="$(mktemp -d)"
trap 'rm -rf "$corpus"' EXIT
cp tests/host/script/conformance/*.trx tests/apps/scripts/*.trx "$corpus/"
findings=build/fuzz/findings-script
mkdir -p "$findings"

log="$findings/fuzz.log"
status=0
ASAN_OPTIONS=detect_leaks=0 build/fuzz/tests/fuzz/script_fuzz \
    -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -dict=tests/fuzz/script.dict -artifact_prefix="$findings/" "$corpus" >"$log" 2>&1 || status=$?
if ((status != 0)); then
    tail -n 80 "$log"
    echo "fuzz: the script interpreter failed on an input (exit $status); see $findings/" >&2
    exit "$status"
fi
grep -E '^#[0-9]+[[:space:]]+DONE' "$log" || true
grep -E '^stat::' "$log"
echo "fuzz: no crash or hang in $seconds seconds"
