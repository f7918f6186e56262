#include <QImage>

#include "host/viewport/PainterGraphicsWindow.h"
#include "tests/host/math/MathTestSupport.h"
#include "tests/host/viewport/ViewportTestSupport.h"

namespace host::test {
namespace {

// Where a world point lands in the window of a view.
Point3 Project(ProjectedGraphicsWindow& gw, const Point3& world) {
    gw.setTransform(Matrix3());
    Point3 window;
    EXPECT_EQ(gw.transPoint(&world, &window), 0);
    return window;
}

// Each view shows the world axes the way round its name says, and a framed box fills
// the window but for the margin, centred, with all of it in front of the camera.
TEST(Viewports, ViewsFrameTheirBoxTheRightWayRound) {
    const Box3 box(Point3(-10, 20, 0), Point3(30, 60, 80));
    const struct {
        int type;
        Point3 right, up;
    } views[] = {
        {VIEW_FRONT, Point3::XAxis, Point3::ZAxis}, {VIEW_TOP, Point3::XAxis, Point3::YAxis},
        {VIEW_RIGHT, Point3::YAxis, Point3::ZAxis}, {VIEW_LEFT, -Point3::YAxis, Point3::ZAxis},
        {VIEW_PERSP_USER, Point3(), Point3()},
    };
    for (const auto& v : views) {
        RecordingGraphicsWindow gw(400, 300);
        Viewport view(gw, v.type);
        view.ZoomExtents(box, 0.1f);
        float minX = 1e9f, maxX = -1e9f, minY = 1e9f, maxY = -1e9f;
        for (int i = 0; i < 8; ++i) {
            const Point3 p = Project(gw, box[i]);
            minX = std::min(minX, p.x), maxX = std::max(maxX, p.x);
            minY = std::min(minY, p.y), maxY = std::max(maxY, p.y);
            EXPECT_GT(p.z, 0.0f) << "in front of the camera, view " << v.type;
        }
        EXPECT_GE(minX, 30.0f - 0.01f);
        EXPECT_LE(maxX, 370.0f + 0.01f);
        EXPECT_GE(minY, 30.0f - 0.01f);
        EXPECT_LE(maxY, 270.0f + 0.01f);
        if (v.type == VIEW_PERSP_USER) {
            EXPECT_TRUE(view.IsPerspView());
            continue;
        }
        EXPECT_FALSE(view.IsPerspView());
        // An orthographic view fills one direction exactly and centres the box.
        EXPECT_TRUE(std::fabs(minX - 30.0f) < 0.01f || std::fabs(minY - 30.0f) < 0.01f);
        EXPECT_NEAR(minX + maxX, 400.0f, 0.01f);
        EXPECT_NEAR(minY + maxY, 300.0f, 0.01f);
        const Point3 c = box.Center(), p = Project(gw, c);
        EXPECT_GT(Project(gw, c + v.right).x, p.x) << "right in view " << v.type;
        EXPECT_LT(Project(gw, c + v.up).y, p.y) << "up in view " << v.type;
    }
}

// The world width of an orthographic view is the same everywhere; a perspective view
// sees more far away. A pixel maps to its construction-plane point and back.
TEST(Viewports, WorldWidthAndConstructionPlane) {
    RecordingGraphicsWindow gw(400, 300);
    Viewport front(gw, VIEW_FRONT);
    front.ZoomExtents(Box3(Point3(-100, -100, -100), Point3(100, 100, 100)), 0.0f);
    EXPECT_NEAR(front.GetVPWorldWidth(Point3()), 200.0f * 400.0f / 300.0f, 1e-2f);
    EXPECT_FLOAT_EQ(front.GetVPWorldWidth(Point3(0, 500, 0)), front.GetVPWorldWidth(Point3()));
    const Point3 onPlane = front.GetPointOnCP({120, 80});
    EXPECT_NEAR(onPlane.y, 0.0f, 1e-3f);
    EXPECT_TRUE(PointNear(Project(gw, onPlane), Point3(120, 80, Project(gw, onPlane).z), 1e-2f));

    RecordingGraphicsWindow pgw(400, 300);
    Viewport persp(pgw, VIEW_PERSP_USER);
    persp.ZoomExtents(Box3(Point3(-100, -100, -100), Point3(100, 100, 100)));
    Matrix3 affine;
    persp.GetAffineTM(affine);
    Matrix3 cameraToWorld = affine;
    cameraToWorld.Invert();
    const Point3 towardCamera = cameraToWorld.GetRow(2);
    EXPECT_GT(persp.GetVPWorldWidth(-towardCamera * 100.0f), persp.GetVPWorldWidth(Point3()));
    const Point3 floor = persp.GetPointOnCP({200, 250});
    EXPECT_NEAR(floor.z, 0.0f, 1e-2f);
    EXPECT_TRUE(PointNear(Project(pgw, floor), Point3(200, 250, Project(pgw, floor).z), 0.05f));
}

// A line reaching behind a perspective camera is cut where it leaves the view, and
// drawing stops at the near plane rather than wrapping round.
TEST(Viewports, PerspectiveLinesAreCutAtTheNearPlane) {
    RecordingGraphicsWindow gw(400, 300);
    Viewport persp(gw, VIEW_PERSP_USER);
    persp.ZoomExtents(Box3(Point3(-10, -10, -10), Point3(10, 10, 10)));
    Matrix3 cameraToWorld;
    persp.GetAffineTM(cameraToWorld);
    cameraToWorld.Invert();
    const Point3 eye = cameraToWorld.GetTrans();
    const Point3 ends[2] = {Point3(), eye + (eye - Point3()) * 1.0f};  // through the eye
    gw.setTransform(Matrix3());
    gw.polyline(2, ends, nullptr, false, nullptr);
    ASSERT_EQ(gw.Lines().size(), 1u);
    EXPECT_NEAR(gw.Lines()[0].window[1].z, gw.Projection().nearClip, 1e-3f);
    const Point3 behind[2] = {eye * 3.0f, eye * 4.0f};
    gw.polyline(2, behind, nullptr, false, nullptr);
    EXPECT_EQ(gw.Lines().size(), 1u);
}

// The painter puts a line's colour on the pixels between its ends and leaves the rest
// in the clear colour; its raster is the image.
TEST(Viewports, PainterDrawsLinesInTheirColour) {
    EnsureGuiApplication();
    PainterGraphicsWindow gw(64, 48);
    gw.setColor(CLEAR_COLOR, 0.0f, 0.0f, 0.2f);
    gw.clearScreen();
    gw.setColor(LINE_COLOR, 1.0f, 0.5f, 0.0f);
    const IPoint3 ends[2] = {{8, 10, 0}, {56, 10, 0}};
    gw.wPolyline(2, ends, nullptr, false, nullptr);
    gw.wText(&ends[1], L"x");
    const QImage& image = gw.Image();
    EXPECT_EQ(image.pixel(30, 10), qRgb(255, 128, 0));
    EXPECT_EQ(image.pixel(30, 20), qRgb(0, 0, 51));
    WindowRaster raster;
    ASSERT_TRUE(gw.getDIB(raster));
    EXPECT_EQ(raster.width, 64);
    EXPECT_EQ(raster.pixels[size_t(10 * 64 + 30)] & 0xFFFFFFu, 0xFF8000u);

    RecordingGraphicsWindow recorder(64, 48);
    EXPECT_FALSE(recorder.getDIB(raster)) << "no pixels to give";
}

}  // namespace
}  // namespace host::test
