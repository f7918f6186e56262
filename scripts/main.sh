#!/usr/bin/env bash
# The main job: install what is missing, build the release tool, and run it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
bash scripts/setup.sh
cmake --preset release
cmake --build --preset release
tool=build/release/apps/zorvanta/zorvanta
"$tool" --version
"$tool" --help
