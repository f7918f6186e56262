#pragma once

#include <vector>

#include "host/classes/KeyframeControl.h"
#include "host/classes/TcbSpline.h"
#include "host/object/HostClassIds.h"

namespace host {

// A rotation key holds its orientation as an axis and angle; the track reads a Quat.
inline Quat KeyValueOf(const ITCBRotKey& key) {
    return Quat(key.val);
}
inline void SetKeyValueOf(ITCBRotKey& key, const Quat& q) {
    key.val = AngAxis(q);
}
// Rotations combine as products, the increment after the value: a difference is the
// rotation from b to a, and repeating it f times turns f times its rotation vector.
inline Quat KeyAdd(const Quat& a, const Quat& d) {
    return a * d;
}
inline Quat KeySub(const Quat& a, const Quat& b) {
    return Inverse(b) * a;
}
inline Quat KeyScale(const Quat& d, float f) {
    return RotationVectorQuat(RotationVector(d) * f);
}

// The quaternion TCB rotation track. Consecutive keys are joined the shorter way. The
// Kochanek-Bartels tangents are built from the rotation vectors between keys (the
// chords), and each segment is q[s] * exp(h(u)), h a cubic Hermite in rotation vectors
// from 0 to the segment's chord, so the curve passes through every key and a track
// turning about one axis follows the scalar TCB curve of its angle exactly. The end
// tangent of a segment is carried into the segment's own coordinates through the
// exponential map, which keeps the angular velocity continuous at a key whose
// continuity is 0.
class TcbRotation : public KeyframeControl<ITCBRotKey, Quat> {
public:
    explicit TcbRotation(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return TCB_ROTATION_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_ROTATION_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"TCB Rotation"); }

    // A relative read turns the matrix in its own space.
    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    // An absolute write takes a Quat; a relative one an AngAxis increment after the
    // present rotation.
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;

protected:
    Quat Interpolate(TimeValue t) const override;
    Quat ExtendLinear(bool before, TimeValue t) const override;
    void UpdateSegments() override;
    const wchar_t* KeysUndoName() const override { return L"TCB Rotation Keys"; }

private:
    TcbSpline spline_;
    std::vector<Quat> quats_;
    // Per key: the chord into it, and its tangents in its own coordinates.
    std::vector<Point3> chords_, in_, out_;
    // Per segment: the end tangent in the coordinates of the segment's start.
    std::vector<Point3> endTangents_;
};

}  // namespace host
