#!/usr/bin/env bash
# The main job: install what is missing, build the release tool, and run it: a script
# builds a character of joints and keys a walk, the tool lists the saved scene and
# draws frames of the walk (and of the sample scene) and the sheet of control shapes,
# then draws the guide points of the default Biped rig and builds that rig, saves it and
# draws it, into build/release/frames.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
bash scripts/setup.sh
cmake --preset release
cmake --build --preset release
tool=build/release/apps/zorvanta/zorvanta
"$tool" --version
"$tool" --help
mkdir -p build/release/frames
walk=build/release/frames/walk.tnx
"$tool" run examples/walk.trx --save "$walk"
"$tool" info "$walk"
for frame in 0 8 15 23 30; do
    "$tool" render "$walk" --frame "$frame" --view front --size 960x540 --grid \
        --out "build/release/frames/walk_$frame.png"
done
shapes=build/release/frames/shapes.tnx
"$tool" run examples/shape_sheet.trx --save "$shapes"
"$tool" render "$shapes" --view top --size 700x700 --out build/release/frames/shapes.png
scene=tests/data/sample_scene.tnx
"$tool" info "$scene"
for frame in 0 5 10; do
    "$tool" render "$scene" --frame "$frame" --view persp --size 960x540 --grid \
        --out "build/release/frames/sample_$frame.png"
done
"$tool" rig --type Biped --out build/release/frames/guide.tnx \
    --render build/release/frames/guide.png
hero=build/release/frames/hero.tnx
"$tool" rig --type Biped --build --out "$hero" --render build/release/frames/hero.png
"$tool" info "$hero"
echo "Frames written to build/release/frames"
