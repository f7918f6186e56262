#!/usr/bin/env bash
# Measures the interpreter's two reference programs (a million-pass counting loop and a
# recursive fib 25) and the same programs in python3, side by side in one run, and
# prints both figures with their ratio. Builds the "release" preset's bench_script first.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

cmake --preset release >/dev/null
cmake --build --preset release --target bench_script >/dev/null

ours="$(build/release/bench/script/bench_script --benchmark_format=json \
    --benchmark_min_time=1 2>/dev/null)"

OURS_JSON="$ours" python3 - <<'PY'
import json, os, time

# The same programs, as a script at module level like ours.
PROGRAMS = {
    "BM_CountingLoop": "x = 0\nfor i in range(1, 1000001): x += i\n",
    "BM_Fib25": "def fib(n): return n if n < 2 else fib(n-1) + fib(n-2)\nfib(25)\n",
}

def python_ms(source, runs=7):
    code = compile(source, "<bench>", "exec")
    best = float("inf")
    for _ in range(runs):
        start = time.process_time()
        exec(code, {})
        best = min(best, time.process_time() - start)
    return best * 1000.0

ours = {b["name"]: b["cpu_time"] for b in json.loads(os.environ["OURS_JSON"])["benchmarks"]}
print(f"{'program':<18}{'ours (ms)':>12}{'python3 (ms)':>15}{'ours/python':>13}")
worst = 0.0
for name, source in PROGRAMS.items():
    py = python_ms(source)
    ratio = ours[name] / py
    worst = max(worst, ratio)
    print(f"{name:<18}{ours[name]:>12.1f}{py:>15.1f}{ratio:>13.2f}")
print("within 2x of CPython" if worst <= 2.0 else "SLOWER than 2x CPython")
PY
