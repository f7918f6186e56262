#!/usr/bin/env bash
# The main job: install what is missing, build the release tool, and run it: it lists the
# sample scene and draws it at three frames of its animation into build/release/frames.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
bash scripts/setup.sh
cmake --preset release
cmake --build --preset release
tool=build/release/apps/zorvanta/zorvanta
"$tool" --version
"$tool" --help
scene=tests/data/sample_scene.tnx
"$tool" info "$scene"
mkdir -p build/release/frames
for frame in 0 5 10; do
    "$tool" render "$scene" --frame "$frame" --view persp --size 960x540 --grid \
        --out "build/release/frames/sample_$frame.png"
done
echo "Frames written to build/release/frames"
