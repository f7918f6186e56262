#pragma once

namespace zorvanta {

// Which widgets of the control helper's parameter rollup are enabled: the rollup sets
// them after each change of type or uniform. size, lengthWidth and height include their
// labels.
struct ControlHelperWidgets {
    bool uniform = false;
    bool size = false;
    bool lengthWidth = false;
    bool height = false;
    bool thickness = false;
    bool corner = false;
    bool steps = false;
    bool warpAmount = false;
    bool warpAxis = false;

    bool operator==(const ControlHelperWidgets&) const = default;
};

// The widgets a shape type reads, with uniform as the block holds it. A type that offers
// the uniform switch sizes itself by size when it is on and by length and width (and
// height, when the shape has depth) when it is off; one that does not always reads
// size. None, and an index outside the catalogue, enables nothing.
ControlHelperWidgets EnabledWidgets(int type, bool uniform);

}  // namespace zorvanta
