#pragma once

#include "host/classes/IEulerControl.h"
#include "host/classes/XYZController.h"
#include "host/math/Euler.h"
#include "host/object/HostClassIds.h"

namespace host {

// The default rotation controller: angle tracks "X Rotation", "Y Rotation" and
// "Z Rotation" in radians, applied in the order's sequence (each track holds the angle
// of its own axis; for the repeating orders the tracks hold the first, second and
// third angle). An absolute write keeps the angles continuous with the present ones;
// SetOrder reinterprets the tracks without converting them.
class EulerXYZ : public XYZController, public IEulerControl {
public:
    explicit EulerXYZ(bool loading = false);
    Class_ID ClassID() override { return EULER_XYZ_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_ROTATION_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Euler XYZ"); }
    using Control::GetInterface;
    void* GetInterface(uint32_t id) override;

    // Absolute: a Quat; relative: the rotation applied in the matrix's own space.
    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    // Absolute: a Quat; relative: an AngAxis composed after the present rotation.
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;

    // The angles at t in order of application (radians), narrowing valid.
    void ReadAngles(TimeValue t, Interval& valid, float* angles) {
        const Point3 p = ReadTracks(t, valid);
        const float tracks[3] = {p.x, p.y, p.z};
        ToAngles(tracks, angles, order_);
    }
    // The angles in order of application from the X, Y and Z tracks' values: each track
    // holds the angle of its own axis, or for the repeating orders the first, second and
    // third.
    static void ToAngles(const float* tracks, float* angles, int order) {
        const int* axes = EulerAxes(order);
        const bool repeating = IsRepeatingEulerOrder(order);
        for (int step = 0; step < 3; ++step) angles[step] = tracks[repeating ? step : axes[step]];
    }

    int GetOrder() override { return order_; }
    // Orders 0 to 8; undoable; the tracks keep their values.
    void SetOrder(int order) override;

    // The order; the tracks are references.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The tracks cloned and the order kept.
    ReferenceTarget* Clone(RemapDir& remap) override;

private:
    class OrderRestore;
    Point3 FromAngles(const float* angles) const;
    int order_ = 0;
};

}  // namespace host
