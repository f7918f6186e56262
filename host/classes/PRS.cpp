#include "host/classes/PRS.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/classes/TrackEdits.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/RemapDir.h"

namespace host {

namespace {

constexpr const wchar_t* kSubNames[3] = {L"Position", L"Rotation", L"Scale"};
constexpr SClass_ID kSubSuperClasses[3] = {CTRL_POSITION_CLASS_ID, CTRL_ROTATION_CLASS_ID,
                                           CTRL_SCALE_CLASS_ID};

}  // namespace

ClassDesc2* GetPRSDesc() {
    static HostClassDesc<PRS> desc(L"Position/Rotation/Scale", L"prs", CTRL_MATRIX3_CLASS_ID,
                                   PRS_CLASS_ID);
    return &desc;
}

PRS::PRS(bool loading) {
    if (loading) return;  // the scene reader sets the sub-controllers
    ReplaceReference(0, NewDefaultPositionController());
    ReplaceReference(1, NewDefaultRotationController());
    ReplaceReference(2, NewDefaultScaleController());
}

WStr PRS::SubAnimName(int i) {
    return WStr(i >= 0 && i < 3 ? kSubNames[i] : L"");
}

void PRS::SetReference(int i, ReferenceTarget* t) {
    subs_[i] = ControlOf(t, kSubSuperClasses[i]);
    TrackEdits::Note();
}

bool PRS::AssignController(Animatable* c, int i) {
    return CanAssignController(i) && AssignTrack(c, i, kSubSuperClasses[i]);
}

void PRS::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod) {
    auto* tm = static_cast<Matrix3*>(val);
    if (!plan_.Current()) plan_.Build(subs_[0], subs_[1], subs_[2]);
    if (plan_.Applies()) return plan_.Apply(t, *tm, valid);
    ApplyParts(t, *tm, valid);
}

void PRS::ApplyParts(TimeValue t, Matrix3& tm, Interval& valid) {
    // Each sub-controller pre-multiplies: position, then rotation, then scale gives
    // S * R * T * parent.
    for (Control* sub : subs_)
        if (sub) sub->GetValue(t, &tm, valid, CTRL_RELATIVE);
}

Matrix3 PRS::World(TimeValue t, const Matrix3& parent) {
    Matrix3 tm = parent;
    Interval valid = FOREVER;
    GetValue(t, &tm, valid, CTRL_RELATIVE);
    return tm;
}

void PRS::SetValue(TimeValue t, void* val, int commit, GetSetMethod) {
    const auto& packet = *static_cast<SetXFormPacket*>(val);
    switch (packet.command) {
        case XFORM_SET:
            return Place(t, packet, commit);
        case XFORM_MOVE:
            return Move(t, packet, commit);
        case XFORM_ROTATE:
            return Turn(t, packet, commit);
        case XFORM_SCALE:
            return Resize(t, packet, commit);
    }
}

void PRS::Place(TimeValue t, const SetXFormPacket& packet, int commit) {
    Point3 pos;
    Quat rot;
    ScaleValue scale;
    DecomposeMatrix(packet.tmAxis * Inverse(packet.tmParent), pos, rot, scale);
    if (subs_[0]) subs_[0]->SetValue(t, &pos, commit, CTRL_ABSOLUTE);
    if (subs_[1]) subs_[1]->SetValue(t, &rot, commit, CTRL_ABSOLUTE);
    if (subs_[2]) subs_[2]->SetValue(t, &scale, commit, CTRL_ABSOLUTE);
}

void PRS::Move(TimeValue t, const SetXFormPacket& packet, int commit) {
    Point3 offset = VectorTransform(Inverse(packet.tmParent), packet.p);
    if (subs_[0]) subs_[0]->SetValue(t, &offset, commit, CTRL_RELATIVE);
}

void PRS::Turn(TimeValue t, const SetXFormPacket& packet, int commit) {
    // The axis given in tmAxis's frame, in world space, then in the parent's space; the
    // angle stays, so turns of more than half a revolution survive.
    // A sender fills aa or q; aa, when it turns at all, keeps whole turns.
    const AngAxis aa = packet.aa.angle != 0.0f ? packet.aa : AngAxis(packet.q);
    const Point3 worldAxis = VectorTransform(RotationOf(packet.tmAxis), aa.axis);
    const Matrix3 parentRotation = RotationOf(packet.tmParent);
    AngAxis increment(VectorTransform(Inverse(parentRotation), worldAxis), aa.angle);
    const Point3 origin = World(t, packet.tmParent).GetTrans();
    if (subs_[1]) subs_[1]->SetValue(t, &increment, commit, CTRL_RELATIVE);
    if (packet.localOrigin) return;
    Matrix3 turn;
    Quat(AngAxis(worldAxis, aa.angle)).MakeMatrix(turn);
    const Point3 pivot = packet.tmAxis.GetTrans();
    PutWorldPosition(t, pivot + VectorTransform(turn, origin - pivot), packet.tmParent, commit);
}

void PRS::Resize(TimeValue t, const SetXFormPacket& packet, int commit) {
    // Factors along tmAxis's axes, carried into the node's own axes: the scale axis
    // turns tmAxis's frame into the node's.
    const Matrix3 world = World(t, packet.tmParent);
    const Quat axisRotation = OrthoQuat(packet.tmAxis);
    ScaleValue increment(packet.p, Quat(RotationOf(packet.tmAxis) * Inverse(RotationOf(world))));
    if (subs_[2]) subs_[2]->SetValue(t, &increment, commit, CTRL_RELATIVE);
    if (packet.localOrigin) return;
    const Matrix3 stretch = ScaleValueMatrix(ScaleValue(packet.p, axisRotation));
    const Point3 pivot = packet.tmAxis.GetTrans();
    PutWorldPosition(t, pivot + VectorTransform(stretch, world.GetTrans() - pivot), packet.tmParent,
                     commit);
}

void PRS::PutWorldPosition(TimeValue t, const Point3& world, const Matrix3& parent, int commit) {
    Point3 local = world * Inverse(parent);
    if (subs_[0]) subs_[0]->SetValue(t, &local, commit, CTRL_ABSOLUTE);
}

ReferenceTarget* PRS::Clone(RemapDir& remap) {
    return CloneObject(this, remap);
}

}  // namespace host
