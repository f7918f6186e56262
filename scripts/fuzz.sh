#!/usr/bin/env bash
# fuzz.sh [SECONDS] [TARGET]: fuzzes one target for the given number of seconds (60
# unless told). TARGET is "scene" (the scene reader, the default: starts from the
# checked-in sample scene and a few scenes the writer makes) or "script" (the script
# interpreter's parser and evaluator under a step limit: starts from the conformance
# scripts). Builds the "fuzz" preset first. Exits non-zero on any crash, hang or leak;
# libFuzzer leaves the input that found it in build/fuzz/findings/ (findings-script/
# for the interpreter). Both are checked for leaks: the interpreter frees loops of
# values when a run ends.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds="${1:-60}"
target="${2:-scene}"

corpus="$(mktemp -d)"
trap 'rm -rf "$corpus"' EXIT
cmake --preset fuzz
case "$target" in
    scene)
        cmake --build --preset fuzz --target scene_reader_fuzz make_fuzz_seeds
        cp tests/data/sample_scene.tnx "$corpus/"
        build/fuzz/tests/fuzz/make_fuzz_seeds "$corpus"
        fuzzer=scene_reader_fuzz dict=tests/fuzz/scene.dict findings=build/fuzz/findings
        what="the scene reader"
        ;;
    script)
        cmake --build --preset fuzz --target script_fuzz
        cp tests/host/script/conformance/*.trx tests/apps/scripts/*.trx "$corpus/"
        fuzzer=script_fuzz dict=tests/fuzz/script.dict findings=build/fuzz/findings-script
        what="the script interpreter"
        ;;
    *)
        echo "fuzz: unknown target '$target' (scene or script)" >&2
        exit 2
        ;;
esac
mkdir -p "$findings"

# The full log goes to a file; the console gets its end, which holds the report of
# whatever was found, or the final figures.
log="$findings/fuzz.log"
status=0
ASAN_OPTIONS=detect_leaks=1 "build/fuzz/tests/fuzz/$fuzzer" \
    -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -dict="$dict" -artifact_prefix="$findings/" "$corpus" >"$log" 2>&1 || status=$?
if ((status != 0)); then
    tail -n 80 "$log"
    echo "fuzz: $what failed on an input (exit $status); see $findings/" >&2
    exit "$status"
fi
grep -E '^#[0-9]+[[:space:]]+DONE' "$log" || true
grep -E '^stat::' "$log"
echo "fuzz: no crash, hang or leak in $what in $seconds seconds"
