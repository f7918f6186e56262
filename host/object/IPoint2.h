#pragma once

namespace host {

// A pixel position in a window: x to the right, y down from the top left corner.
struct IPoint2 {
    int x = 0;
    int y = 0;

    bool operator==(const IPoint2&) const = default;
};

// A pixel position with a depth: z is the distance in front of the camera, in world
// units scaled to an integer (see GraphicsWindow::hTransPoint).
struct IPoint3 {
    int x = 0;
    int y = 0;
    int z = 0;

    bool operator==(const IPoint3&) const = default;
};

}  // namespace host
