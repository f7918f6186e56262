#pragma once

#include "host/object/ViewExp.h"
#include "host/viewport/ProjectedGraphicsWindow.h"

namespace host {

// A view of the scene: a view type (front, side, top, perspective...) whose camera is
// framed on a world box, drawing through a graphics window that it does not own.
class Viewport : public ViewExp {
public:
    // The share of the window's smaller side left free around a framed box.
    static constexpr float kDefaultMargin = 0.08f;

    Viewport(ProjectedGraphicsWindow& gw, int viewType);

    // Points the camera at worldBox so that it fills the window but for margin.
    void ZoomExtents(const Box3& worldBox, float margin = kDefaultMargin);
    // Marks the view gone: it stays an object but is no longer alive.
    void Close() { alive_ = false; }

    bool IsAlive() override { return alive_; }
    GraphicsWindow* getGW() override { return alive_ ? &gw_ : nullptr; }
    void GetAffineTM(Matrix3& tm) override { tm = gw_.Projection().affineTM; }
    int GetViewType() override { return viewType_; }
    bool IsPerspView() override { return gw_.Projection().perspective; }
    float GetFOV() override { return gw_.Projection().fov; }
    int GetViewportWidth() override { return gw_.getWinSizeX(); }
    int GetViewportHeight() override { return gw_.getWinSizeY(); }
    float GetVPWorldWidth(const Point3& wp) override;
    Point3 GetPointOnCP(const IPoint2& ps) override;

private:
    ProjectedGraphicsWindow& gw_;
    int viewType_;
    bool alive_ = true;
};

}  // namespace host
