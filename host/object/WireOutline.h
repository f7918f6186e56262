#pragma once

#include <vector>

#include "host/math/Box3.h"
#include "host/math/Point3.h"

namespace host {

class GraphicsWindow;

// Draws a line through any number of points. The graphics window takes at most
// GW_MAX_POLYLINE_POINTS a call, so a longer line goes in pieces that each start on the
// last point of the one before, and a closed one closes with a last two-point piece.
void DrawPolyline(GraphicsWindow* gw, int count, const Point3* points, bool closed);

// An object's wireframe as data: lines through points in the object's own space. The
// same outline is what the object draws, what its hit test tests and what its bounding
// box holds, so the three cannot disagree.
class WireOutline {
public:
    struct Line {
        std::vector<Point3> points;
        bool closed = false;
        bool ownColor = false;  // drawn in color rather than the window's line colour
        Point3 color;
    };

    void AddLine(std::vector<Point3> points, bool closed = false);
    // A line that keeps its own colour whatever the node's state (an axis tripod).
    void AddColoredLine(std::vector<Point3> points, const Point3& color);
    void AddSegment(const Point3& a, const Point3& b) { AddLine({a, b}); }
    // Every line moved through tm.
    void Transform(const Matrix3& tm);
    const std::vector<Line>& Lines() const { return lines_; }
    bool IsEmpty() const { return lines_.empty(); }
    // The box of every point; empty for no points.
    Box3 BoundingBox() const;
    // Each line in the graphics window's line colour, under its current transform.
    void Draw(GraphicsWindow* gw) const;

private:
    std::vector<Line> lines_;
};

}  // namespace host
