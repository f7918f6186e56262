#include "host/object/WireOutline.h"

#include <algorithm>

#include "host/object/GraphicsWindow.h"

namespace host {

void DrawPolyline(GraphicsWindow* gw, int count, const Point3* points, bool closed) {
    if (count < 2) return;
    if (count <= GW_MAX_POLYLINE_POINTS) {
        gw->polyline(count, points, nullptr, closed, nullptr);
        return;
    }
    constexpr int stride = GW_MAX_POLYLINE_POINTS - 1;
    for (int start = 0; start < count - 1; start += stride)
        gw->polyline(std::min(GW_MAX_POLYLINE_POINTS, count - start), points + start, nullptr,
                     false, nullptr);
    if (closed) {
        const Point3 closing[2] = {points[count - 1], points[0]};
        gw->polyline(2, closing, nullptr, false, nullptr);
    }
}

void WireOutline::AddLine(std::vector<Point3> points, bool closed) {
    lines_.push_back({std::move(points), closed, false, Point3()});
}

void WireOutline::AddColoredLine(std::vector<Point3> points, const Point3& color) {
    lines_.push_back({std::move(points), false, true, color});
}

void WireOutline::Transform(const Matrix3& tm) {
    for (Line& line : lines_)
        for (Point3& p : line.points) p = p * tm;
}

Box3 WireOutline::BoundingBox() const {
    Box3 box;
    for (const Line& line : lines_)
        for (const Point3& p : line.points) box += p;
    return box;
}

void WireOutline::Draw(GraphicsWindow* gw) const {
    const Point3 lineColor = gw->getColor(LINE_COLOR);
    for (const Line& line : lines_) {
        if (line.ownColor) gw->setColor(LINE_COLOR, line.color);
        DrawPolyline(gw, int(line.points.size()), line.points.data(), line.closed);
        if (line.ownColor) gw->setColor(LINE_COLOR, lineColor);
    }
}

}  // namespace host
