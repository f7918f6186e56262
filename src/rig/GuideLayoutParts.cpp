#include <algorithm>
#include <cmath>

#include "rig/GuideLayoutParts.h"

namespace zorvanta::guide {

using namespace host;

namespace {

// Samples of a curve's arc length: enough for spacing guide points by eye.
constexpr int kCurveSamples = 64;

Point3 Lerp(const Point3& a, const Point3& b, float t) {
    return a + (b - a) * t;
}

}  // namespace

SideFrames SideFrames::Mirrored(const Matrix3& right) {
    return {right, right * ScaleMatrix(Point3(-1.0f, 1.0f, 1.0f))};
}

Matrix3 Frame(float scale, const Point3& trans, float rotX) {
    Matrix3 frame = ScaleMatrix(Point3(scale, scale, scale));
    if (rotX != 0.0f) frame.RotateX(rotX);
    frame.Translate(trans);
    return frame;
}

PointPair AddPair(GuideBuilder& b, int component, const wchar_t* name, int index,
                  const Point3& localPos, int side, PointPair parent, const SideFrames& frames,
                  bool keepOld, uint32_t flags) {
    PointPair made;
    b.AddMirroredPoints(component, name, index, localPos, side, parent.right, parent.left,
                        frames.right, frames.left, keepOld, &made.right, &made.left, flags);
    return made;
}

Point3 BezierPoint(const Point3 (&bezier)[4], float t) {
    const float u = 1.0f - t;
    return bezier[0] * (u * u * u) + bezier[1] * (3.0f * u * u * t) +
           bezier[2] * (3.0f * u * t * t) + bezier[3] * (t * t * t);
}

float SplineFraction(const Point3 (&bezier)[4], float fraction) {
    float lengths[kCurveSamples + 1] = {0.0f};
    Point3 last = bezier[0];
    for (int i = 1; i <= kCurveSamples; ++i) {
        const Point3 p = BezierPoint(bezier, float(i) / kCurveSamples);
        lengths[i] = lengths[i - 1] + Length(p - last);
        last = p;
    }
    const float goal = std::clamp(fraction, 0.0f, 1.0f) * lengths[kCurveSamples];
    for (int i = 1; i <= kCurveSamples; ++i) {
        if (lengths[i] < goal) continue;
        const float span = lengths[i] - lengths[i - 1];
        const float within = span > 0.0f ? (goal - lengths[i - 1]) / span : 0.0f;
        return (float(i - 1) + within) / kCurveSamples;
    }
    return 1.0f;
}

Point3 PolylinePoint(const std::vector<Point3>& polyline, float fraction) {
    if (polyline.empty()) return Point3();
    float total = 0.0f;
    for (size_t i = 1; i < polyline.size(); ++i) total += Length(polyline[i] - polyline[i - 1]);
    float goal = std::clamp(fraction, 0.0f, 1.0f) * total;
    for (size_t i = 1; i < polyline.size(); ++i) {
        const float span = Length(polyline[i] - polyline[i - 1]);
        if (goal <= span && span > 0.0f) return Lerp(polyline[i - 1], polyline[i], goal / span);
        goal -= span;
    }
    return polyline.back();
}

void AddBonePoints(GuideBuilder& b, int component, const wchar_t* name, int index, int count,
                   const std::vector<Point3>& polyline, int side, PointPair parent,
                   const SideFrames& frames, bool keepOld) {
    const WStr base = RigShortName((std::wstring(name) + L"_bone").c_str(), kSideNone, index);
    for (int k = 0; k < count; ++k) {
        const Point3 pos = PolylinePoint(polyline, (float(k) + 0.5f) / float(count));
        parent = AddPair(b, component, base.data(), k, pos, side, parent, frames, keepOld);
    }
}

std::vector<PointPair> AddChain(GuideBuilder& b, const Chain& chain, int side, PointPair parent,
                                const SideFrames& frames) {
    const WStr base = RigShortName(chain.name, kSideNone, chain.index);
    const int n = std::max(1, chain.controls);
    const int a = chain.gapStart ? 1 : 0;
    const int span = n + a + (chain.gapEnd ? 1 : 0) - 1;
    std::vector<PointPair> made;
    std::vector<Point3> polyline;
    if (chain.gapStart) polyline.push_back(chain.from);
    const PointPair root = parent;
    for (int k = 0; k < n; ++k) {
        const float t = span > 0 ? float(k + a) / float(span) : 0.0f;
        const Point3 pos = Lerp(chain.from, chain.to, t);
        parent = AddPair(b, chain.component, base.data(), k, pos, side, parent, frames,
                         chain.keepControls, chain.flags);
        made.push_back(parent);
        polyline.push_back(pos);
    }
    if (chain.corner)
        made.push_back(AddPair(b, chain.component, chain.corner, -1, chain.to, side, parent, frames,
                               chain.keepControls));
    if (chain.gapEnd) polyline.push_back(chain.to);
    if (chain.bones > 0)
        AddBonePoints(b, chain.component, chain.name, chain.index, chain.bones, polyline, side,
                      chain.gapStart ? root : made.front(), frames, chain.keepBones);
    return made;
}

int BoneCount(const GuideBuilder& b, RigParam bones, RigParam useBones) {
    return b.Params().On(useBones) ? std::max(1, b.Params()[bones]) : 0;
}

}  // namespace zorvanta::guide
