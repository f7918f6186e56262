#include "controllers/RotationSpace.h"

#include "frame/StringTable.h"
#include "host/classes/ChunkIO.h"
#include "host/classes/TargetLoop.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/object/RemapDir.h"

namespace zorvanta {

using namespace host;

// Keeps the node where it is when the target changes by an edit; a scene being read
// and undo or redo (which restore the offset by its own record) leave it alone.
class RotationSpaceAccessor : public PBAccessor {
public:
    void Set(PB2Value& v, ReferenceMaker* owner, ParamID id, int, TimeValue t) override {
        auto* space = dynamic_cast<RotationSpace*>(owner);
        if (id == RS_TARGET && space && !theHold.RestoreOrRedoing()) space->TargetChanged(v, t);
    }
};

namespace {

ParamBlockDesc2* Params(ClassDesc2* cd = nullptr) {
    static RotationSpaceAccessor accessor;
    static ParamBlockDesc2 block(
        0, L"params", P_AUTO_CONSTRUCT, 0, cd,
        {
            {RS_TARGET, L"target", TYPE_INODE, 0, IDS_TARGET, {}, std::nullopt, &accessor},
            {RS_WEIGHT,
             L"weight",
             TYPE_PCNT_FRAC,
             P_ANIMATABLE,
             IDS_WEIGHT,
             {.f = 1.0f},
             std::pair{0.0f, 100.0f}},
            {RS_KEEP_INITIAL_OFFSET,
             L"keep_initial_offset",
             TYPE_BOOL,
             0,
             IDS_KEEP_INITIAL_OFFSET,
             {.i = 0}},
            {RS_INITIAL_OFFSET, L"initial_offset", TYPE_MATRIX3, 0, IDS_INITIAL_OFFSET, {}},
        });
    return &block;
}

}  // namespace

void RotationSpace::DescribeBlocks(ClassDesc2* desc) {
    Params(desc);
}

RotationSpace::RotationSpace(bool loading) {
    if (loading) return;  // the scene reader sets the block and the inner controller
    ReplaceReference(0, new IParamBlock2(Params(), this));
    ReplaceReference(1, NewDefaultMatrix3Controller());
}

WStr RotationSpace::GetClassName() {
    return WStr(GetString(IDS_ROTATION_SPACE_CLASS));
}

void* RotationSpace::GetInterface(uint32_t id) {
    if (id == I_LOCKED) return static_cast<ILockedTrackImp*>(this);
    return Control::GetInterface(id);
}

ReferenceTarget* RotationSpace::GetReference(int i) {
    if (i == 0) return pblock;
    return i == 1 ? inner : nullptr;
}

WStr RotationSpace::SubAnimName(int i) {
    return WStr(i == 0 ? L"Parameters" : L"Transform");
}

void RotationSpace::SetReference(int i, ReferenceTarget* t) {
    if (i == 0)
        pblock = DefinedBlock(t);
    else if (i == 1)
        inner = ControlOf(t, CTRL_MATRIX3_CLASS_ID);
}

void RotationSpace::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod) {
    if (!pblock) return;
    Matrix3& tm = *static_cast<Matrix3*>(val);
    if (!inner) return Space(t, tm, valid);
    Matrix3 local;
    inner->GetValue(t, &local, valid, CTRL_RELATIVE);
    tm.PreTranslate(local.GetTrans());
    Space(t, tm, valid);
    local.NoTrans();
    tm = local * tm;
}

void RotationSpace::Space(TimeValue t, Matrix3& tm, Interval& valid) {
    auto* target = dynamic_cast<INode*>(pblock->GetReferenceTarget(RS_TARGET, t));
    if (target && !inSpace) {
        inSpace = true;
        Matrix3 space = target->GetNodeTM(t, &valid);
        inSpace = false;
        if (pblock->GetInt(RS_KEEP_INITIAL_OFFSET, t))
            space = pblock->GetMatrix3(RS_INITIAL_OFFSET, t) * space;
        Quat turn = OrthoQuat(space * Inverse(tm));
        PB2Value weight;
        pblock->GetValue(RS_WEIGHT, t, weight, valid);
        turn.MakeClosest(Quat());
        tm = QuatMatrix(Slerp(Quat(), turn, weight.f)) * tm;
    }
    spaceTM = tm;
}

Point3 RotationSpace::PivotDisplacement(TimeValue t, const SetXFormPacket& packet) {
    Matrix3 world = packet.tmParent;
    Interval valid = FOREVER;
    GetValue(t, &world, valid, CTRL_RELATIVE);
    // The change in the axis's own space: a turn by the packet's rotation (its AngAxis
    // when it turns at all, which keeps whole turns) or a scale by its factors.
    Matrix3 change;
    if (packet.command == XFORM_ROTATE)
        change = QuatMatrix(packet.aa.angle != 0.0f ? Quat(packet.aa) : packet.q);
    else
        change = ScaleMatrix(packet.p);
    const Point3 origin = world.GetTrans();
    const Point3 moved = origin * Inverse(packet.tmAxis) * change * packet.tmAxis;
    return VectorTransform(Inverse(packet.tmParent), moved - origin);
}

void RotationSpace::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    if (!pblock || !inner || GetLocked()) return;
    SetXFormPacket packet = *static_cast<SetXFormPacket*>(val);
    Interval valid = FOREVER;
    switch (packet.command) {
        case XFORM_MOVE:
            return inner->SetValue(t, &packet, commit, method);
        case XFORM_ROTATE:
        case XFORM_SCALE:
            if (!packet.localOrigin) {
                // The position's share of the edit first: the inner controller turns or
                // scales about the node's own origin below.
                SetXFormPacket move;
                move.command = XFORM_MOVE;
                move.p = PivotDisplacement(t, packet);
                inner->SetValue(t, &move, 0, CTRL_RELATIVE);
            }
            Space(t, packet.tmParent, valid);
            packet.localOrigin = true;
            return inner->SetValue(t, &packet, commit, CTRL_RELATIVE);
        case XFORM_SET: {
            // The position stays in the parent's space; rotation and scale are taken in
            // the target's.
            const Point3 position = (packet.tmAxis * Inverse(packet.tmParent)).GetTrans();
            Space(t, packet.tmParent, valid);
            packet.tmAxis = packet.tmAxis * Inverse(packet.tmParent);
            packet.tmAxis.SetTrans(position);
            packet.tmParent = Matrix3();
            return inner->SetValue(t, &packet, commit, CTRL_ABSOLUTE);
        }
    }
}

void RotationSpace::TargetChanged(PB2Value& v, TimeValue t) {
    auto* node = dynamic_cast<INode*>(v.r);
    if (node && TargetWouldLoop(this, node)) {
        v.r = pblock ? pblock->GetReferenceTarget(RS_TARGET, t) : nullptr;
        return;
    }
    if (!pblock) return;
    const Matrix3 target = node ? node->GetNodeTM(t) : Matrix3();
    pblock->SetValue(RS_INITIAL_OFFSET, t, QuatMatrix(Quat(spaceTM * Inverse(target))));
    GetCOREInterface()->RedrawViews(t);
}

IOResult RotationSpace::Save(ISave* isave) {
    WriteFlagChunk(isave, ROTATION_SPACE_LOCKED_CHUNK, GetLocked());
    return IO_OK;
}

IOResult RotationSpace::Load(ILoad* iload) {
    return ReadChunks(iload, [&](uint16_t id) {
        if (id != ROTATION_SPACE_LOCKED_CHUNK) return IO_OK;
        bool locked = false;
        if (ReadFlag(iload, locked) != IO_OK) return IO_ERROR;
        SetLocked(locked);
        return IO_OK;
    });
}

ReferenceTarget* RotationSpace::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](RotationSpace& to) { to.SetLocked(GetLocked()); });
}

}  // namespace zorvanta
