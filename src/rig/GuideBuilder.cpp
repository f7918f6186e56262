#include "rig/GuideBuilder.h"

#include "rig/RigNames.h"

namespace zorvanta {

using namespace host;

namespace {

RigPoint MakePoint(int component, WStr name, uint32_t flags, const Point3& pos, int parent) {
    RigPoint p;
    p.component = component;
    p.name = std::move(name);
    p.flags = flags;
    p.pos = pos;
    p.parent = parent;
    return p;
}

}  // namespace

GuideBuilder::GuideBuilder(std::vector<RigPoint>& points, const std::vector<RigPoint>& oldPoints,
                           const GuideParams& params, const GuideParams& last,
                           int selectedComponent)
    : points_(points),
      oldPoints_(oldPoints),
      params_(params),
      last_(last),
      selectedComponent_(selectedComponent) {}

bool GuideBuilder::KeepOld(RigParam id) const {
    return params_[id] == last_[id];
}

bool GuideBuilder::KeepOld(std::initializer_list<RigParam> ids) const {
    for (RigParam id : ids)
        if (!KeepOld(id)) return false;
    return true;
}

int GuideBuilder::AddCenterPoint(int component, const wchar_t* name, int index,
                                 const Point3& localPos, int parent, const Matrix3& frame,
                                 bool keepOld, uint32_t flags) {
    return Add(
        MakePoint(component, RigShortName(name, kSideNone, index), flags, localPos * frame, parent),
        keepOld);
}

void GuideBuilder::AddMirroredPoints(int component, const wchar_t* name, int index,
                                     const Point3& localPos, int side, int parentRight,
                                     int parentLeft, const Matrix3& frameRight,
                                     const Matrix3& frameLeft, bool keepOld, int* outRight,
                                     int* outLeft, uint32_t flags) {
    int right = -1;
    int left = -1;
    if (side == kSideCenter) {
        right = AddCenterPoint(component, name, index, localPos, parentRight, frameRight, keepOld,
                               flags);
    }
    if (side == kSideRight || side == kSideBoth)
        right = Add(MakePoint(component, RigShortName(name, kSideRight, index), flags + kPointRight,
                              localPos * frameRight, parentRight),
                    keepOld);
    if (side == kSideLeft || side == kSideBoth)
        left = Add(MakePoint(component, RigShortName(name, kSideLeft, index), flags + kPointLeft,
                             localPos * frameLeft, parentLeft),
                   keepOld);
    if (right >= 0 && left >= 0) {
        points_[size_t(right)].mirror = left;
        points_[size_t(left)].mirror = right;
    }
    if (outRight) *outRight = right;
    if (outLeft) *outLeft = left;
}

Matrix3 GuideBuilder::MirrorFrame(const Matrix3& right) {
    return ScaleMatrix(Point3(-1.0f, 1.0f, 1.0f)) * right;
}

int GuideBuilder::Find(const WStr& name) const {
    for (size_t i = 0; i < points_.size(); ++i)
        if (points_[i].name == name) return int(i);
    return -1;
}

int GuideBuilder::Add(RigPoint p, bool keepOld) {
    const int index = int(points_.size());
    if (p.parent >= 0) {
        RigPoint& parent = points_[size_t(p.parent)];
        if (parent.firstChild < 0 && !p.Fixed()) parent.firstChild = index;
    }
    if (keepOld) {
        // A rebuild with the same layout meets the old point at the same index: try
        // that first, then search.
        const RigPoint* old = nullptr;
        if (size_t(index) < oldPoints_.size() && oldPoints_[size_t(index)].name == p.name)
            old = &oldPoints_[size_t(index)];
        for (size_t i = 0; !old && i < oldPoints_.size(); ++i)
            if (oldPoints_[i].name == p.name) old = &oldPoints_[i];
        if (old) {
            p.pos = old->pos;
            if (!p.Fixed()) p.selected = old->selected;
        }
    } else if (p.component == selectedComponent_ && !p.Fixed()) {
        p.selected = 1;
    }
    points_.push_back(std::move(p));
    return index;
}

}  // namespace zorvanta
