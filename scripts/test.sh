#!/usr/bin/env bash
# All tests: install what is missing, build under AddressSanitizer and
# UndefinedBehaviorSanitizer, and run every test with ctest.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
bash scripts/setup.sh
cmake --preset asan
cmake --build --preset asan
ctest --preset asan -j "$(nproc)"
