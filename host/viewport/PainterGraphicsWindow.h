#pragma once

#include <QImage>
#include <QPainter>
#include <memory>

#include "host/viewport/ProjectedGraphicsWindow.h"

namespace host {

// A graphics window that draws into an image with QPainter, offscreen: one-pixel
// lines without antialiasing (so a line's pixels have exactly its colour), markers of
// a few pixels, text in the default font. Drawing text needs a QGuiApplication
// (EnsureGuiApplication makes one). The depth of primitives is not used: wireframes
// are drawn in call order.
class PainterGraphicsWindow : public ProjectedGraphicsWindow {
public:
    PainterGraphicsWindow(int width, int height);
    ~PainterGraphicsWindow() override;

    // The picture so far.
    const QImage& Image();
    bool getDIB(WindowRaster& raster) override;

protected:
    void DrawClear(const Point3& color) override;
    void DrawLine(const GWLine& line) override;
    void DrawMarker(const GWMarker& marker) override;
    void DrawText(const GWText& text) override;
    void DrawTriangle(const GWTriangle& triangle) override;

private:
    // The painter, begun on the image at the first use after Image().
    QPainter& Painter();

    QImage image_;
    std::unique_ptr<QPainter> painter_;
};

// Makes the process's QGuiApplication if there is none, on the offscreen platform unless
// QT_QPA_PLATFORM names another. It lives until the process ends.
void EnsureGuiApplication();

}  // namespace host
