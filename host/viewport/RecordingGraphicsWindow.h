#pragma once

#include <vector>

#include "host/viewport/ProjectedGraphicsWindow.h"

namespace host {

// A graphics window that keeps what it is asked to draw as data: every line, marker,
// text and triangle with its world and window points and colour, and the clears. It
// has no pixels. Tests read it to see what objects draw and where.
class RecordingGraphicsWindow : public ProjectedGraphicsWindow {
public:
    RecordingGraphicsWindow(int width, int height) : ProjectedGraphicsWindow(width, height) {}

    const std::vector<GWLine>& Lines() const { return lines_; }
    const std::vector<GWMarker>& Markers() const { return markers_; }
    const std::vector<GWText>& Texts() const { return texts_; }
    const std::vector<GWTriangle>& Triangles() const { return triangles_; }
    int Clears() const { return clears_; }
    // Forgets everything recorded.
    void Reset();

    bool getDIB(WindowRaster&) override { return false; }

protected:
    void DrawClear(const Point3&) override { ++clears_; }
    void DrawLine(const GWLine& line) override { lines_.push_back(line); }
    void DrawMarker(const GWMarker& marker) override { markers_.push_back(marker); }
    void DrawText(const GWText& text) override { texts_.push_back(text); }
    void DrawTriangle(const GWTriangle& triangle) override { triangles_.push_back(triangle); }

private:
    std::vector<GWLine> lines_;
    std::vector<GWMarker> markers_;
    std::vector<GWText> texts_;
    std::vector<GWTriangle> triangles_;
    int clears_ = 0;
};

}  // namespace host
