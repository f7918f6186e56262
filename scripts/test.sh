#!/usr/bin/env bash
# All tests: install what is missing, build under AddressSanitizer and
# UndefinedBehaviorSanitizer, run every test with ctest, then fuzz the scene reader
# and the script interpreter for a minute each.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
bash scripts/setup.sh
cmake --preset asan
cmake --build --preset asan
ctest --preset asan -j "$(nproc)"
bash scripts/fuzz.sh 60
bash scripts/fuzz.sh 60 script
