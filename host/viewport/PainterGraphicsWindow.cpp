#include "host/viewport/PainterGraphicsWindow.h"

#include <QGuiApplication>
#include <QPolygonF>
#include <QString>
#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace host {

namespace {

QColor ToQColor(const Point3& rgb, float alpha = 1.0f) {
    auto channel = [](float v) { return int(std::lround(std::clamp(v, 0.0f, 1.0f) * 255.0f)); };
    return QColor(channel(rgb.x), channel(rgb.y), channel(rgb.z), channel(alpha));
}

QPointF ToQPoint(const Point3& window) {
    return {double(window.x), double(window.y)};
}

// The half size of a marker in pixels.
int MarkerRadius(MarkerType type) {
    switch (type) {
        case POINT_MRKR:
        case SM_DOT_MRKR:
            return 0;
        case SM_HOLLOW_BOX_MRKR:
        case SM_CIRCLE_MRKR:
        case SM_TRIANGLE_MRKR:
        case SM_DIAMOND_MRKR:
        case DOT_MRKR:
            return 2;
        default:
            return 4;
    }
}

}  // namespace

PainterGraphicsWindow::PainterGraphicsWindow(int width, int height)
    : ProjectedGraphicsWindow(width, height),
      image_(getWinSizeX(), getWinSizeY(), QImage::Format_RGB32) {
    image_.fill(Qt::black);
}

PainterGraphicsWindow::~PainterGraphicsWindow() = default;

QPainter& PainterGraphicsWindow::Painter() {
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::Antialiasing, false);
    }
    return *painter_;
}

const QImage& PainterGraphicsWindow::Image() {
    painter_.reset();  // ends the painting, so the image holds everything drawn
    return image_;
}

bool PainterGraphicsWindow::getDIB(WindowRaster& raster) {
    const QImage& image = Image();
    raster.width = image.width();
    raster.height = image.height();
    raster.pixels.resize(size_t(raster.width) * size_t(raster.height));
    for (int y = 0; y < raster.height; ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        std::copy(row, row + raster.width, raster.pixels.begin() + ptrdiff_t(y) * raster.width);
    }
    return true;
}

void PainterGraphicsWindow::DrawClear(const Point3& color) {
    painter_.reset();
    image_.fill(ToQColor(color));
}

void PainterGraphicsWindow::DrawLine(const GWLine& line) {
    QPainter& p = Painter();
    p.setPen(QPen(ToQColor(line.color), 0));
    p.drawLine(ToQPoint(line.window[0]), ToQPoint(line.window[1]));
}

void PainterGraphicsWindow::DrawMarker(const GWMarker& marker) {
    QPainter& p = Painter();
    const QColor color = ToQColor(marker.color);
    p.setPen(QPen(color, 0));
    p.setBrush(Qt::NoBrush);
    const QPointF c = ToQPoint(marker.window);
    const double r = MarkerRadius(marker.type);
    switch (marker.type) {
        case HOLLOW_BOX_MRKR:
        case SM_HOLLOW_BOX_MRKR:
            p.drawRect(QRectF(c.x() - r, c.y() - r, 2 * r, 2 * r));
            break;
        case BIG_BOX_MRKR:
        case DOT_MRKR:
            p.fillRect(QRectF(c.x() - r, c.y() - r, 2 * r + 1, 2 * r + 1), color);
            break;
        case CIRCLE_MRKR:
        case SM_CIRCLE_MRKR:
            p.drawEllipse(c, r, r);
            break;
        case TRIANGLE_MRKR:
        case SM_TRIANGLE_MRKR:
            p.drawPolygon(
                QPolygonF({{c.x() - r, c.y() + r}, {c.x() + r, c.y() + r}, {c.x(), c.y() - r}}));
            break;
        case DIAMOND_MRKR:
        case SM_DIAMOND_MRKR:
            p.drawPolygon(QPolygonF(
                {{c.x() - r, c.y()}, {c.x(), c.y() - r}, {c.x() + r, c.y()}, {c.x(), c.y() + r}}));
            break;
        case PLUS_SIGN_MRKR:
            p.drawLine(QPointF(c.x() - r, c.y()), QPointF(c.x() + r, c.y()));
            p.drawLine(QPointF(c.x(), c.y() - r), QPointF(c.x(), c.y() + r));
            break;
        case ASTERISK_MRKR:
            p.drawLine(QPointF(c.x() - r, c.y()), QPointF(c.x() + r, c.y()));
            p.drawLine(QPointF(c.x(), c.y() - r), QPointF(c.x(), c.y() + r));
            [[fallthrough]];
        case X_MRKR:
            p.drawLine(QPointF(c.x() - r, c.y() - r), QPointF(c.x() + r, c.y() + r));
            p.drawLine(QPointF(c.x() - r, c.y() + r), QPointF(c.x() + r, c.y() - r));
            break;
        default:
            p.drawPoint(c);
            break;
    }
}

void PainterGraphicsWindow::DrawText(const GWText& text) {
    QPainter& p = Painter();
    p.setPen(QPen(ToQColor(text.color), 0));
    p.drawText(ToQPoint(text.window), QString::fromStdWString(text.text));
}

void PainterGraphicsWindow::DrawTriangle(const GWTriangle& triangle) {
    QPainter& p = Painter();
    p.setPen(Qt::NoPen);
    p.setBrush(ToQColor(triangle.color, triangle.opacity));
    p.drawPolygon(QPolygonF({ToQPoint(triangle.window[0]), ToQPoint(triangle.window[1]),
                             ToQPoint(triangle.window[2])}));
    p.setBrush(Qt::NoBrush);
}

void EnsureGuiApplication() {
    if (QGuiApplication::instance()) return;
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static int argc = 1;
    static char name[] = "zorvanta";
    static char* argv[] = {name, nullptr};
    new QGuiApplication(argc, argv);  // kept for the life of the process
}

}  // namespace host

#if defined(__SANITIZE_ADDRESS__)
// The font library that QGuiApplication starts keeps a cache it never frees; the leak
// checker of sanitized builds is told so here, where the application is made.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
extern "C" const char* __lsan_default_options() {
    return "print_suppressions=0";
}
#endif
