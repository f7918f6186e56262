#!/usr/bin/env bash
# Fuzzes the scene reader for the given number of seconds (60 unless told), starting
# from the checked-in sample scene and a few scenes the writer makes into a temporary
# corpus. Builds the "fuzz" preset first. Exits non-zero on any crash, hang or leak;
# libFuzzer leaves the input that found it in build/fuzz/findings/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds="${1:-60}"

cmake --preset fuzz
cmake --build --preset fuzz --target scene_reader_fuzz make_fuzz_seeds

corpus="$(mktemp -d)"
trap 'rm -rf "$corpus"' EXIT
cp tests/data/sample_scene.tnx "$corpus/"
build/fuzz/tests/fuzz/make_fuzz_seeds "$corpus"
findings=build/fuzz/findings
mkdir -p "$findings"

# The full log goes to a file; the console gets its end, which holds the report of
# whatever was found, or the final figures.
log="$findings/fuzz.log"
status=0
ASAN_OPTIONS=detect_leaks=1 build/fuzz/tests/fuzz/scene_reader_fuzz \
    -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -dict=tests/fuzz/scene.dict -artifact_prefix="$findings/" "$corpus" >"$log" 2>&1 || status=$?
if ((status != 0)); then
    tail -n 80 "$log"
    echo "fuzz: the scene reader failed on an input (exit $status); see $findings/" >&2
    exit "$status"
fi
grep -E '^#[0-9]+[[:space:]]+DONE' "$log" || true
grep -E '^stat::' "$log"
echo "fuzz: no crash, hang or leak in $seconds seconds"
