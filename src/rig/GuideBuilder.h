#pragma once

#include <vector>

#include "host/math/Matrix3.h"
#include "rig/GuideParams.h"
#include "rig/RigPoint.h"

namespace zorvanta {

// Makes the guide points of one rebuild. Layout code passes local positions through a
// frame matrix, so part layouts compose: the biped places the spine, head, arm and leg
// layouts each in its own frame. A point of the same name in the previous list keeps
// its moved position (and selection) when the parameter that shapes it did not change.
class GuideBuilder {
public:
    // points receives the new points (it starts empty); oldPoints are those of the last
    // rebuild; last is the parameter snapshot of the last rebuild (keepOld compares to
    // it); selectedComponent selects the new points of that component when no old
    // position is kept.
    GuideBuilder(std::vector<RigPoint>& points, const std::vector<RigPoint>& oldPoints,
                 const GuideParams& params, const GuideParams& last, int selectedComponent);

    const GuideParams& Params() const { return params_; }
    // Whether points shaped by parameter id keep their old positions: the parameter has
    // the value it had at the last rebuild.
    bool KeepOld(RigParam id) const;
    // Several parameters shape the same points: all of them must be unchanged.
    bool KeepOld(std::initializer_list<RigParam> ids) const;

    // One point, named name or, with index 0 or more, "name_<index+1>", at
    // localPos * frame. Returns its index.
    int AddCenterPoint(int component, const wchar_t* name, int index, const host::Point3& localPos,
                       int parent, const host::Matrix3& frame, bool keepOld, uint32_t flags = 0);
    // The right and/or left point of a pair, by side (0 right "r_", 1 left "l_", 2 both,
    // 3 one point without prefix). The right point takes flags + 1, the left flags + 2;
    // each is placed through its own frame. When both are made they are each other's
    // mirror. outRight/outLeft get -1 for a side not made.
    void AddMirroredPoints(int component, const wchar_t* name, int index,
                           const host::Point3& localPos, int side, int parentRight, int parentLeft,
                           const host::Matrix3& frameRight, const host::Matrix3& frameLeft,
                           bool keepOld, int* outRight, int* outLeft, uint32_t flags = 0);

    // The left frame of a right frame: a scale of (-1, 1, 1) applied first.
    static host::Matrix3 MirrorFrame(const host::Matrix3& right);
    // The index of the point named name, or -1.
    int Find(const host::WStr& name) const;
    std::vector<RigPoint>& Points() { return points_; }

private:
    int Add(RigPoint p, bool keepOld);

    std::vector<RigPoint>& points_;
    const std::vector<RigPoint>& oldPoints_;
    const GuideParams& params_;
    const GuideParams& last_;
    int selectedComponent_;
};

}  // namespace zorvanta
