// Moving, turning and scaling the rig object's selected points, with their children and
// their mirror partners.
#include "host/object/Hold.h"
#include "host/object/RestoreObj.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

namespace {

constexpr uint8_t kNotMoved = 0;
constexpr uint8_t kMovedSelected = 1;
constexpr uint8_t kMovedChild = 2;

}  // namespace

// The positions (unit frame) of the points one gesture may change, from before the
// gesture and, for redo, from after it. One per gesture: the first step of a gesture
// puts it, and the end of the hold lets the next gesture put its own.
class RigSystem::PointsPosRestore : public RestoreObj {
public:
    PointsPosRestore(RigSystem* owner, std::vector<int> indices)
        : pin_(owner), owner_(owner), indices_(std::move(indices)), undoPos_(Positions()) {}
    void Restore(bool isUndo) override {
        if (isUndo) redoPos_ = Positions();
        Apply(undoPos_);
    }
    void Redo() override { Apply(redoPos_); }
    void EndHold() override { owner_->positionsHeld = false; }
    int Size() override { return int(sizeof(*this) + indices_.size() * (sizeof(int) + 12)); }
    WStr Description() override { return WStr(L"PointsPosRestore"); }

private:
    std::vector<Point3> Positions() const {
        std::vector<Point3> positions;
        for (int i : indices_) positions.push_back(owner_->points[size_t(i)].pos);
        return positions;
    }
    void Apply(const std::vector<Point3>& positions) {
        for (size_t k = 0; k < indices_.size() && k < positions.size(); ++k)
            if (size_t(indices_[k]) < owner_->points.size())
                owner_->points[size_t(indices_[k])].pos = positions[k];
        owner_->PointsChanged();
    }

    TargetPin pin_;
    RigSystem* owner_;
    std::vector<int> indices_;
    std::vector<Point3> undoPos_;
    std::vector<Point3> redoPos_;
};

int RigSystem::FollowedParent(int i) const {
    const int count = int(points.size());
    auto valid = [count](int index) { return index >= 0 && index < count ? index : -1; };
    const RigPoint& p = points[size_t(i)];
    if ((p.flags & kPointFollowMirrorParent) && valid(p.mirror) >= 0)
        return valid(points[size_t(p.mirror)].parent);
    const int parent = valid(p.parent);
    if ((p.flags & kPointFollowGrandparent) && parent >= 0)
        return valid(points[size_t(parent)].parent);
    return parent;
}

void RigSystem::MarkMovedPoints() {
    const size_t count = points.size();
    movedMarks.assign(count, kNotMoved);
    for (size_t i = 0; i < count; ++i)
        if (points[i].selected && !points[i].Fixed()) movedMarks[i] = kMovedSelected;
    if (!Bool(RIG_AFFECT_CHILDREN, 0)) return;
    for (size_t i = 0; i < count; ++i) {
        if (movedMarks[i] || points[i].Fixed()) continue;
        // Up the followed links; at most count steps, so a bad loop of links ends.
        int up = FollowedParent(int(i));
        for (size_t steps = 0; up >= 0 && steps < count; ++steps) {
            if (movedMarks[size_t(up)] == kMovedSelected) {
                movedMarks[i] = kMovedChild;
                break;
            }
            up = FollowedParent(up);
        }
    }
}

Point3 RigSystem::MirroredPos(int i, int m, bool relativeToParent) const {
    Point3 q = points[size_t(i)].pos;
    if (!relativeToParent) {
        q.x = -q.x;
        return q;
    }
    auto parentX = [this](int index) {
        const int parent = points[size_t(index)].parent;
        return parent >= 0 && size_t(parent) < points.size() ? points[size_t(parent)].pos.x : 0.0f;
    };
    q.x = parentX(m) - (q.x - parentX(i));
    return q;
}

void RigSystem::TransformSelection(const Matrix3& partTM, const Matrix3& tmAxis,
                                   const Matrix3& xform) {
    // Positions are stored divided by the size: at size 0 there is no way back.
    const float size = HelperSize();
    if (size == 0.0f || points.empty()) return;
    const Matrix3 frame = partTM * Inverse(tmAxis);
    const Matrix3 inverseFrame = Inverse(frame);
    const Matrix3 total = frame * xform;

    MarkMovedPoints();
    const bool affectMirror = Bool(RIG_AFFECT_MIRROR, 0);
    const bool relative = Bool(RIG_MIRROR_RELATIVE_TO_PARENT, 0);
    // Partner m of a moved point i follows it unless m moves by itself: a centre point
    // has no side to mirror from, and a fixed partner never moves.
    auto mirrorOf = [&](size_t i) {
        const RigPoint& p = points[i];
        const int m = p.mirror;
        if (!affectMirror || !movedMarks[i] || m < 0 || size_t(m) >= points.size()) return -1;
        if (!(p.flags & (kPointRight | kPointLeft)) || movedMarks[size_t(m)]) return -1;
        return points[size_t(m)].Fixed() ? -1 : m;
    };

    if (theHold.Holding() && !positionsHeld) {
        std::vector<int> changed;
        for (size_t i = 0; i < points.size(); ++i)
            if (movedMarks[i]) changed.push_back(int(i));
        for (size_t i = 0; i < points.size(); ++i)
            if (const int m = mirrorOf(i); m >= 0) changed.push_back(m);
        if (!changed.empty()) {
            theHold.Put(new PointsPosRestore(this, std::move(changed)));
            positionsHeld = true;
        }
    }

    bool anyMoved = false;
    for (size_t i = 0; i < points.size(); ++i) {
        if (!movedMarks[i]) continue;
        const Point3 p = (points[i].pos * size * total) * inverseFrame;
        points[i].pos = p / size;
        anyMoved = true;
    }
    // In creation order, so that a partner's parent is mirrored before the partner
    // measures its offset from it.
    for (size_t i = 0; i < points.size(); ++i)
        if (const int m = mirrorOf(i); m >= 0)
            points[size_t(m)].pos = MirroredPos(int(i), m, relative);
    if (anyMoved) PointsChanged();
}

void RigSystem::Move(TimeValue, Matrix3& partm, Matrix3& tmAxis, Point3& val, bool) {
    if (subObjLevel == kPointLevel) TransformSelection(partm, tmAxis, TransMatrix(val));
}

void RigSystem::Rotate(TimeValue, Matrix3& partm, Matrix3& tmAxis, Quat& val, bool) {
    if (subObjLevel != kPointLevel) return;
    Matrix3 turn;
    val.MakeMatrix(turn);
    TransformSelection(partm, tmAxis, turn);
}

void RigSystem::Scale(TimeValue, Matrix3& partm, Matrix3& tmAxis, Point3& val, bool) {
    if (subObjLevel == kPointLevel) TransformSelection(partm, tmAxis, ScaleMatrix(val));
}

}  // namespace zorvanta
