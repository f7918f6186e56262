#pragma once

#include "host/math/Matrix3.h"
#include "host/math/Point3.h"
#include "host/object/GraphicsWindow.h"
#include "host/object/HitLog.h"
#include "host/object/IPoint2.h"

namespace host {

// A viewport as objects see it: its graphics window, the camera (view space has X to
// the right, Y up and the camera looking down -Z), its size, and the log of the
// current hit test. A viewport that is gone answers false to IsAlive and has no
// graphics window.
class ViewExp {
public:
    virtual ~ViewExp() = default;

    virtual bool IsAlive() = 0;
    // Null when the view is not alive.
    virtual GraphicsWindow* getGW() = 0;
    // World to view.
    virtual void GetAffineTM(Matrix3& tm) = 0;
    virtual int GetViewType() = 0;
    virtual bool IsPerspView() = 0;
    // The horizontal field of view of a perspective view, radians.
    virtual float GetFOV() = 0;
    // The view's size in pixels.
    virtual int GetViewportWidth() = 0;
    virtual int GetViewportHeight() = 0;
    // How many world units the view's width spans at the world point wp: the same
    // everywhere in an orthographic view, growing with the distance in a perspective one.
    virtual float GetVPWorldWidth(const Point3& wp) = 0;
    // The world point under the pixel ps on the view's construction plane: the world
    // plane through the origin that faces the view (XY for top and perspective views,
    // XZ for front and back, YZ for the sides).
    virtual Point3 GetPointOnCP(const IPoint2& ps) = 0;

    // The hit log that HitTest callers fill.
    void LogHit(INode* node, ModContext* mc, uint32_t distance, uint32_t info, float depth = 0.0f) {
        hits_.LogHit({node, mc, distance, info, depth});
    }
    // The closest hit (see HitLog::ClosestHit), or null.
    const HitRecord* GetClosestHit() const { return hits_.ClosestHit(); }
    void ClearHitList() { hits_.Clear(); }
    const HitLog& GetHitLog() const { return hits_; }

private:
    HitLog hits_;
};

}  // namespace host
