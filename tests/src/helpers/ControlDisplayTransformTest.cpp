#include <gtest/gtest.h>

#include "helpers/ControlDisplayTransform.h"
#include "helpers/ControlHelperWidgets.h"
#include "host/object/ViewExp.h"

namespace zorvanta::test {
namespace {

using namespace host;

// A live view with a fixed camera and a world width that is the same everywhere.
struct FixedView : ViewExp {
    bool IsAlive() override { return true; }
    GraphicsWindow* getGW() override { return nullptr; }
    void GetAffineTM(Matrix3& tm) override { tm = affine; }
    int GetViewType() override { return VIEW_ISO_USER; }
    bool IsPerspView() override { return false; }
    float GetFOV() override { return 0.0f; }
    int GetViewportWidth() override { return 400; }
    int GetViewportHeight() override { return 300; }
    float GetVPWorldWidth(const Point3&) override { return worldWidth; }
    Point3 GetPointOnCP(const IPoint2&) override { return {}; }

    Matrix3 affine;
    float worldWidth = 100.0f;
};

void ExpectNear(const Point3& a, const Point3& b, const char* what) {
    EXPECT_NEAR(Length(a - b), 0.0f, 1e-4f) << what << ": " << a.x << " " << a.y << " " << a.z;
}

// Axis 2 leaves the shape as the object has it; 0 and 1 stand the shape's Z along the
// object's X and Y. Points of the shape are followed into the world.
TEST(ControlDisplayTransform, AxisStandsTheShapeOnAnObjectAxis) {
    const Matrix3 objectTM = TransMatrix(Point3(1, 2, 3));
    const struct {
        int axis;
        Point3 shapeX, shapeZ;  // where the shape's X and Z point in the object
    } cases[] = {
        {2, {1, 0, 0}, {0, 0, 1}},
        {0, {0, 1, 0}, {1, 0, 0}},
        {1, {-1, 0, 0}, {0, 1, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.axis);
        ControlDisplaySettings s;
        s.axis = c.axis;
        const Matrix3 tm = ControlDisplayTM(objectTM, s, nullptr);
        ExpectNear(Point3::Origin * tm, Point3(1, 2, 3), "origin");
        ExpectNear(Point3::XAxis * tm, Point3(1, 2, 3) + c.shapeX, "X");
        ExpectNear(Point3::ZAxis * tm, Point3(1, 2, 3) + c.shapeZ, "Z");
    }
}

// Facing the camera, the shape's origin stays at the gizmo's offset point in the object,
// the gizmo only turns the shape within the view plane (with the object's X and Y scale)
// and the depth is flattened; axis has no say. Without a live view the shape is placed
// as usual.
TEST(ControlDisplayTransform, FaceCameraLiesInTheViewPlane) {
    FixedView view;
    view.affine = RotateXMatrix(0.7f) * RotateYMatrix(-0.4f) * TransMatrix(Point3(0, 0, -50));
    const Matrix3 cameraToWorld = Inverse(view.affine);
    const Point3 viewRight = VectorTransform(cameraToWorld, Point3::XAxis);
    const Point3 viewUp = VectorTransform(cameraToWorld, Point3::YAxis);
    const Point3 viewBack = VectorTransform(cameraToWorld, Point3::ZAxis);

    Matrix3 objectTM = ScaleMatrix(Point3(2, 3, 4)) * TransMatrix(Point3(10, 0, 0));
    ControlDisplaySettings s;
    s.faceCamera = true;
    s.axis = 0;
    s.gizmo = RotateZMatrix(float(M_PI / 2)) * TransMatrix(Point3(5, 0, 0));
    const Matrix3 tm = ControlDisplayTM(objectTM, s, &view);
    const Point3 origin(20, 0, 0);  // the offset (5, 0, 0) through the object's X scale of 2
    ExpectNear(Point3::Origin * tm, origin, "origin");
    ExpectNear(Point3::XAxis * tm, origin + viewUp * 3.0f, "X turned a quarter onto the view's up");
    ExpectNear(Point3::YAxis * tm, origin - viewRight * 2.0f, "Y onto the view's left");
    ExpectNear(Point3::ZAxis * tm, origin + viewBack * kFaceCameraDepth, "Z flattened");

    const Matrix3 noView = ControlDisplayTM(objectTM, s, nullptr);
    ExpectNear(Point3::Origin * noView, origin, "no view: origin");
    ExpectNear(Point3::ZAxis * noView, origin + Point3(0, 3, 0), "no view: axis 0 and the turn");
}

// A constant screen size scales the shape by 0.005 of the view's width at the object.
TEST(ControlDisplayTransform, ConstantScreenSizeFollowsTheViewWidth) {
    FixedView view;
    view.worldWidth = 1000.0f;
    ControlDisplaySettings s;
    s.constantScreenSize = true;
    const Matrix3 tm = ControlDisplayTM(TransMatrix(Point3(7, 8, 9)), s, &view);
    ExpectNear(Point3::Origin * tm, Point3(7, 8, 9), "origin");
    ExpectNear(Point3(1, 1, 1) * tm, Point3(12, 13, 14), "scale 5");
}

// The rollup's switches for a few shapes of each kind, with uniform on and off.
TEST(ControlHelperWidgets, EnabledByTypeAndUniform) {
    using W = ControlHelperWidgets;
    const struct {
        int type;
        bool uniform;
        W enabled;
    } cases[] = {
        {0, true, W{}},
        {1, true, W{true, true, false, false, false, false, false, false, false}},
        {1, false, W{true, false, true, true, false, false, false, false, false}},
        {4, false, W{true, false, true, true, true, false, false, false, false}},
        {5, false, W{true, false, true, false, false, false, true, true, false}},
        {7, false, W{false, true, false, false, true, false, true, false, false}},
        {11, false, W{true, false, true, false, false, true, true, true, true}},
        {12, false, W{true, false, true, true, false, false, true, true, true}},
        {16, true, W{false, true, false, false, true, false, true, true, true}},
        {23, true, W{false, true, false, false, false, false, true, false, false}},
        {31, false, W{false, true, false, false, false, false, false, false, false}},
        {35, true, W{false, true, false, false, true, false, false, false, false}},
        {42, false, W{true, false, true, true, false, false, false, false, false}},
        {43, true, W{}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(EnabledWidgets(c.type, c.uniform), c.enabled)
            << "type " << c.type << " uniform " << c.uniform;
}

}  // namespace
}  // namespace zorvanta::test
