#include "controllers/RigControl.h"

#include <cwctype>

#include "animationmanager/ManagerIds.h"
#include "controllers/ControllerIds.h"
#include "controllers/GimbalProxy.h"
#include "controllers/RigWalkers.h"
#include "controllers/RotationXYZ.h"
#include "frame/StringTable.h"
#include "host/classes/ChunkIO.h"
#include "host/math/AffineParts.h"
#include "host/math/Euler.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/ClassDesc2.h"
#include "host/object/GraphicsWindow.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/PanelService.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/object/RemapDir.h"
#include "host/object/ViewExp.h"

namespace zorvanta {

using namespace host;

namespace {

bool mirrorEnabled = true;
bool mirrorOffsetGuard = true;
int subPanel = 0;

constexpr SClass_ID kSubSuperClasses[3] = {CTRL_POSITION_CLASS_ID, CTRL_ROTATION_CLASS_ID,
                                           CTRL_SCALE_CLASS_ID};
constexpr const wchar_t* kSubNames[RigControl::kSlots] = {L"Parameters", L"Position", L"Rotation",
                                                          L"Scale"};

// Setting connect_mirror_offset on one control sets it on every control of the rig.
class ConnectMirrorAccessor : public PBAccessor {
public:
    void Set(PB2Value& v, ReferenceMaker* owner, ParamID id, int, TimeValue) override {
        auto* control = dynamic_cast<RigControl*>(owner);
        if (id != RigControl::kConnectMirrorOffset || !control || !mirrorOffsetGuard) return;
        // Undo and redo restore every control's value by its own record.
        if (theHold.RestoreOrRedoing()) return;
        struct Guard {
            Guard() { mirrorOffsetGuard = false; }
            ~Guard() { mirrorOffsetGuard = true; }
        } guard;
        ForEachRigControl(FindOwnerNode(control), [&](RigControl* other) {
            IParamBlock2* pb = other->GetParamBlock(0);
            if (other != control && pb) pb->SetValue(RigControl::kConnectMirrorOffset, 0, v.i);
        });
        GetCOREInterface()->ForceCompleteRedraw();
    }
};

ParamBlockDesc2* Params(ClassDesc2* desc = nullptr) {
    static ConnectMirrorAccessor connectMirror;
    static ParamBlockDesc2 block(
        0, L"params", P_AUTO_CONSTRUCT, RigControl::kParams, desc,
        {
            {RigControl::kFigureMode, L"figure_mode", TYPE_BOOL, 0, 0, {.i = 0}},
            {RigControl::kOffsetTM, L"offsetTM", TYPE_MATRIX3, 0, IDS_OFFSET_TM, {}},
            {RigControl::kIndependentOffset,
             L"independent_offset",
             TYPE_BOOL,
             0,
             IDS_INDEPENDENT_OFFSET,
             {.i = 1}},
            {RigControl::kStraightScale,
             L"straight_scale",
             TYPE_BOOL,
             0,
             IDS_STRAIGHT_SCALE,
             {.i = 0}},
            {RigControl::kConnectMirrorOffset,
             L"connect_mirror_offset",
             TYPE_BOOL,
             0,
             IDS_CONNECT_MIRROR_OFFSET,
             {.i = 1},
             std::nullopt,
             &connectMirror},
        });
    return &block;
}

// m with its Euler angle (XYZ) about axis turned the other way; scale and translation
// stay.
Matrix3 FlipEulerAngle(const Matrix3& m, int axis) {
    Point3 pos;
    Quat rot;
    ScaleValue scale;
    DecomposeMatrix(m, pos, rot, scale);
    float angles[3];
    MatrixToEuler(QuatMatrix(rot), angles);
    angles[axis] = -angles[axis];
    Matrix3 turned;
    EulerToMatrix(angles, turned);
    return ComposeMatrix(pos, Quat(turned), scale);
}

bool IsAxis(int axis) {
    return axis >= 0 && axis < 3;
}

}  // namespace

// What the block says, read once after each change of it: GetValue runs for every
// control at every new time, and the offset's parts cost a decomposition.
struct RigControl::Offset {
    bool current = false;
    bool figure = false;
    bool indep = true;
    bool straight = false;
    Matrix3 tm;
    Point3 pos;
    Quat rot;
    ScaleValue scale;
    Matrix3 rotMatrix;    // of rot
    Matrix3 scaleMatrix;  // ScaleValueMatrix(scale)
    bool rotIdentity = true;
    bool scaleIdentity = true;
};

// The outcome of the mirror test: whether this control gets the mirrored delta, and
// the axes to mirror (-1: none).
struct RigControl::Mirror {
    bool on = false;
    int posAxis = -1;
    int rotAxis = -1;
};

// The motion panel's state while it edits this control.
class RigControl::EditState {
public:
    IObjParam* ip = nullptr;
    uint32_t flags = 0;
    Control* subOpen = nullptr;  // the sub-controller whose parameters show
    void* rollups[3] = {nullptr, nullptr, nullptr};
};

RigControl::RigControl(bool loading) : offset_(new Offset) {
    if (loading) return;
    ReplaceReference(kParams, new IParamBlock2(Params(), this));
    ReplaceReference(kPosition, NewDefaultPositionController());
    ReplaceReference(kRotation, new RotationXYZ(false));
    ReplaceReference(kScale, NewDefaultScaleController());
}

RigControl::~RigControl() {
    if (edit_) GetCOREInterface()->UnRegisterTimeChangeCallback(this);
    delete edit_;
    delete offset_;
}

void RigControl::DescribeBlocks(ClassDesc2* desc) {
    Params(desc);
    desc->AddInterface(IRigControl::Desc());
}

WStr RigControl::GetClassName() {
    return WStr(GetString(IDS_RIG_CONTROL_CLASS));
}

void* RigControl::GetInterface(uint32_t id) {
    if (id == I_LOCKED) return static_cast<ILockedTrackImp*>(this);
    return CompoundControl::GetInterface(id);
}

FPInterface* RigControl::GetInterface(Interface_ID id) {
    if (id == RIG_CONTROL_INTERFACE_ID) return static_cast<IRigControl*>(this);
    return CompoundControl::GetInterface(id);
}

ReferenceTarget* RigControl::GetReference(int i) {
    if (i == kParams) return pblock_;
    return i > kParams && i < kSlots ? subs_[i - 1] : nullptr;
}

void RigControl::SetReference(int i, ReferenceTarget* target) {
    if (i == kParams) {
        pblock_ = DefinedBlock(target);
        offset_->current = false;
    } else if (i > kParams && i < kSlots) {
        subs_[i - 1] = ControlOf(target, kSubSuperClasses[i - 1]);
    }
}

WStr RigControl::SubAnimName(int i) {
    return WStr(i >= 0 && i < kSlots ? kSubNames[i] : L"");
}

bool RigControl::AssignController(Animatable* c, int i) {
    return CanAssignController(i) && AssignTrack(c, i, kSubSuperClasses[i - 1]);
}

const RigControl::Offset& RigControl::CurrentOffset() {
    Offset& off = *offset_;
    if (off.current || !pblock_) return off;
    off.figure = pblock_->GetInt(kFigureMode) != 0;
    off.indep = pblock_->GetInt(kIndependentOffset) != 0;
    off.straight = pblock_->GetInt(kStraightScale) != 0;
    off.tm = pblock_->GetMatrix3(kOffsetTM, 0);
    DecomposeMatrix(off.tm, off.pos, off.rot, off.scale);
    off.rotMatrix = QuatMatrix(off.rot);
    off.scaleMatrix = ScaleValueMatrix(off.scale);
    off.rotIdentity = off.rot.IsIdentity();
    off.scaleIdentity = off.scale == ScaleValue();
    off.current = true;
    return off;
}

void RigControl::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod) {
    if (!pblock_) return;
    Matrix3& tm = *static_cast<Matrix3*>(val);
    const Offset& off = CurrentOffset();
    if (off.figure) {
        tm = off.tm * tm;
        return;
    }
    PrepareParent(tm, off);
    if (subs_[0]) subs_[0]->GetValue(t, &tm, valid, CTRL_RELATIVE);
    Point3 before;
    if (off.straight) {
        before = RowLengths(tm);
        tm.Orthogonalize();
    }
    if (off.indep && !off.rotIdentity) tm = off.rotMatrix * tm;
    if (subs_[1]) subs_[1]->GetValue(t, &tm, valid, CTRL_RELATIVE);
    if (off.indep && !off.scaleIdentity) tm = off.scaleMatrix * tm;
    if (subs_[2]) subs_[2]->GetValue(t, &tm, valid, CTRL_RELATIVE);
    if (off.straight) {
        const Point3 after = RowLengths(tm);
        tm.Orthogonalize();
        tm.PreScale(after * before);
    }
}

void RigControl::PrepareParent(Matrix3& tmParent, const Offset& off) {
    if (off.indep)
        tmParent.PreTranslate(off.pos);
    else
        tmParent = off.tm * tmParent;
}

void RigControl::SetValue(TimeValue t, void* val, int commit, GetSetMethod) {
    if (GetLocked() || !pblock_) return;
    SetXFormPacket packet = *static_cast<SetXFormPacket*>(val);
    // A copy: writing the offset renews the cache while the branches read it.
    const Offset off = CurrentOffset();
    const Mirror mirror = MirrorTest(t);
    switch (packet.command) {
        case XFORM_MOVE:
            return Move(t, packet, off, mirror, commit);
        case XFORM_ROTATE:
            return Turn(t, packet, off, mirror, commit);
        case XFORM_SCALE:
            return Resize(t, packet, off, commit);
        case XFORM_SET:
            return Place(t, packet, off, commit);
    }
}

void RigControl::Move(TimeValue t, SetXFormPacket& packet, const Offset& off, const Mirror& m,
                      int commit) {
    if (!off.figure) PrepareParent(packet.tmParent, off);
    if (m.on && IsAxis(m.posAxis)) packet.p[m.posAxis] = -packet.p[m.posAxis];
    Point3 delta = VectorTransform(packet.tmAxis * Inverse(packet.tmParent), packet.p);
    if (!off.figure) {
        if (subs_[0]) subs_[0]->SetValue(t, &delta, commit, CTRL_RELATIVE);
        return;
    }
    Matrix3 offset = off.tm;
    offset.Translate(delta);
    PutOffset(offset, true);
}

void RigControl::Turn(TimeValue t, SetXFormPacket& packet, const Offset& off, const Mirror& m,
                      int commit) {
    Matrix3& tmParent = packet.tmParent;
    if (!off.figure) {
        PrepareParent(tmParent, off);
        if (off.indep) tmParent = QuatMatrix(OrthoQuat(off.tm)) * tmParent;
    }
    AngAxis aa = packet.aa;
    if (m.on && m.rotAxis >= 0)
        for (int k = 0; k < 3; ++k)
            if (k != m.rotAxis) aa.axis[k] = -aa.axis[k];
    tmParent.Orthogonalize();
    aa.axis = VectorTransform(packet.tmAxis * Inverse(tmParent), aa.axis);
    if (!off.figure) {
        if (subs_[1]) subs_[1]->SetValue(t, &aa, commit, CTRL_RELATIVE);
        return;
    }
    PutOffset(ReplaceRotation(off.tm, OrthoQuat(off.tm) * Quat(aa)), true);
}

void RigControl::Resize(TimeValue t, SetXFormPacket& packet, const Offset& off, int commit) {
    Matrix3& tmParent = packet.tmParent;
    const Point3& p = packet.p;
    if (off.figure && off.straight) {
        Matrix3 offset = off.tm;
        ApplyScaleValue(offset, ScaleValue(p * RowLengths(off.tm)));
        return PutOffset(offset, true);
    }
    if (off.figure) {
        const Matrix3 a = packet.tmAxis * Inverse(tmParent);
        Matrix3 offset = off.tm * Inverse(a);
        offset.Scale(p, false);
        return PutOffset(offset * a, true);
    }
    PrepareParent(tmParent, off);
    if (!subs_[2]) return;
    Interval ignored = FOREVER;
    if (off.indep) tmParent = QuatMatrix(OrthoQuat(off.tm)) * tmParent;
    if (subs_[1]) subs_[1]->GetValue(t, &tmParent, ignored, CTRL_RELATIVE);
    if (off.indep) tmParent = off.scaleMatrix * tmParent;
    ScaleValue scale(p);
    if (!off.straight) scale.q = Quat(packet.tmAxis * Inverse(tmParent));
    subs_[2]->SetValue(t, &scale, commit, CTRL_RELATIVE);
}

void RigControl::Place(TimeValue t, SetXFormPacket& packet, const Offset& off, int commit) {
    Matrix3& tmParent = packet.tmParent;
    if (off.figure) return SetOffsetTM(packet.tmAxis * Inverse(tmParent));
    Point3 pos;
    Quat rot;
    ScaleValue scale;
    PrepareParent(tmParent, off);
    if (off.indep) {
        pos = (packet.tmAxis * Inverse(tmParent)).GetTrans();
        tmParent.PreTranslate(pos);
        tmParent = QuatMatrix(OrthoQuat(off.tm)) * tmParent;
        rot = OrthoQuat(packet.tmAxis * Inverse(tmParent));
        tmParent = QuatMatrix(rot) * tmParent;
        tmParent = off.scaleMatrix * tmParent;
        Point3 ignoredPos;
        Quat ignoredRot;
        DecomposeMatrix(packet.tmAxis * Inverse(tmParent), ignoredPos, ignoredRot, scale);
    } else {
        DecomposeMatrix(packet.tmAxis * Inverse(tmParent), pos, rot, scale);
    }
    if (off.straight) scale.q = Quat();
    // A rig control always has its three parts; a damaged file may not have given them.
    if (subs_[0]) subs_[0]->SetValue(t, &pos, commit, CTRL_ABSOLUTE);
    if (subs_[1]) subs_[1]->SetValue(t, &rot, commit, CTRL_ABSOLUTE);
    if (subs_[2]) subs_[2]->SetValue(t, &scale, commit, CTRL_ABSOLUTE);
}

RigControl::Mirror RigControl::MirrorTest(TimeValue t) {
    Mirror m;
    if (!mirrorEnabled || GetCOREInterface()->GetRefCoordSys() != COORDS_LOCAL) return m;
    INode* node = FindOwnerNode(this);
    if (!node || !node->Selected()) return m;
    IParamBlock2* manager = FindManagerBlock(node);
    if (!manager) return m;
    auto* partner = dynamic_cast<INode*>(manager->GetReferenceTarget(AM_MIRROR_NODE, t));
    if (!partner || !partner->Selected()) return m;
    const WStr tags = manager->GetStr(AM_TAGS, t);
    if (tags.Length() < 2 || std::towlower(wint_t(tags[0])) != L'r' || tags[1] != L'_') return m;
    if (manager->GetInt(AM_USE_MIRROR_POS, t)) m.posAxis = manager->GetInt(AM_MIRROR_POS_AXIS, t);
    if (manager->GetInt(AM_USE_MIRROR_ROT, t)) m.rotAxis = manager->GetInt(AM_MIRROR_ROT_AXIS, t);
    m.on = true;
    return m;
}

void RigControl::WriteOffset(const Matrix3& offset) {
    pblock_->SetValue(kOffsetTM, 0, offset);
}

void RigControl::PutOffset(const Matrix3& offset, bool check) {
    if (!pblock_) return;
    INode* node = pblock_->GetInt(kConnectMirrorOffset) ? FindOwnerNode(this) : nullptr;
    IParamBlock2* manager = FindManagerBlock(node);
    if (!manager) return WriteOffset(offset);
    const TimeValue t = GetCOREInterface()->GetTime();
    const bool usePos = manager->GetInt(AM_USE_MIRROR_POS, t) != 0;
    const bool useRot = manager->GetInt(AM_USE_MIRROR_ROT, t) != 0;
    if (!usePos && !useRot) return WriteOffset(offset);
    Matrix3 delta = offset * Inverse(pblock_->GetMatrix3(kOffsetTM, 0));
    auto* partner = dynamic_cast<INode*>(manager->GetReferenceTarget(AM_MIRROR_NODE, t));
    if (!partner || (check && partner->Selected())) return WriteOffset(offset);
    RigControl* other = FindRigControl(partner->GetTMController());
    if (!other || !other->pblock_) return WriteOffset(offset);
    if (const int axis = manager->GetInt(AM_MIRROR_POS_AXIS, t); usePos && IsAxis(axis)) {
        Point3 trans = delta.GetTrans();
        trans[axis] = -trans[axis];
        delta.SetTrans(trans);
    }
    if (useRot) {
        const int keep = manager->GetInt(AM_MIRROR_ROT_AXIS, t);
        for (int axis = 0; axis < 3; ++axis)
            if (axis != keep) delta = FlipEulerAngle(delta, axis);
    }
    other->pblock_->SetValue(kOffsetTM, 0, delta * other->pblock_->GetMatrix3(kOffsetTM, 0));
    WriteOffset(offset);
}

Matrix3 RigControl::GetOffsetTM() {
    return pblock_ ? pblock_->GetMatrix3(kOffsetTM, 0) : Matrix3();
}

void RigControl::SetOffsetTM(const Matrix3& m) {
    PutOffset(m, false);
}

Point3 RigControl::GetOffsetPos() {
    return GetOffsetTM().GetTrans();
}

void RigControl::SetOffsetPos(const Point3& p) {
    Matrix3 m = GetOffsetTM();
    m.SetTrans(p);
    SetOffsetTM(m);
}

Quat RigControl::GetOffsetRot() {
    return pblock_ ? OrthoQuat(GetOffsetTM()) : Quat();
}

void RigControl::SetOffsetRot(const Quat& q) {
    SetOffsetTM(ReplaceRotation(GetOffsetTM(), q));
}

Point3 RigControl::GetOffsetScale() {
    if (!pblock_) return Point3();
    AffineParts parts;
    decomp_affine(GetOffsetTM(), &parts);
    return parts.k;
}

void RigControl::SetOffsetScale(const Point3& s) {
    Matrix3 m = GetOffsetTM();
    m.Orthogonalize();
    m.PreScale(s);
    SetOffsetTM(m);
}

bool RigControl::GetFigureMode() {
    return pblock_ && pblock_->GetInt(kFigureMode) != 0;
}

void RigControl::SetFigureMode(bool on) {
    if (!pblock_) return;
    auto put = [on](IParamBlock2* pb) {
        if (pb && (pb->GetInt(kFigureMode) != 0) != on) pb->SetValue(kFigureMode, 0, int(on));
    };
    ForEachRigControl(FindOwnerNode(this), [&](RigControl* rc) { put(rc->pblock_); });
    put(pblock_);
}

bool RigControl::GetMirrorEnabled() {
    return mirrorEnabled;
}

void RigControl::SetMirrorEnabled(bool on) {
    mirrorEnabled = on;
}

int RigControl::GetSubPanel() {
    return subPanel;
}

void RigControl::SetSubPanel(int which) {
    if (which >= 0 && which < 3) subPanel = which;
}

Control* RigControl::GetRotationController() {
    // The host's further gimbal mode query has no counterpart here: it never says 1.
    if (!GimbalProxy::Enabled() || GetCOREInterface()->GetRefCoordSys() != COORDS_GIMBAL ||
        !pblock_)
        return subs_[1];
    if (GetFigureMode()) return nullptr;
    return GimbalProxy::For(subs_[1], GetOffsetTM(), GetCOREInterface()->GetTime());
}

void RigControl::Copy(Control* from) {
    if (!from) return;
    const TimeValue now = GetCOREInterface()->GetTime();
    Matrix3 tm;
    Interval valid = FOREVER;
    from->GetValue(now, &tm, valid, CTRL_RELATIVE);
    Point3 pos;
    Quat rot;
    ScaleValue scale;
    DecomposeMatrix(tm, pos, rot, scale);
    if (subs_[0]) subs_[0]->SetValue(now, &pos, 1, CTRL_ABSOLUTE);
    if (subs_[1]) subs_[1]->SetValue(now, &rot, 1, CTRL_ABSOLUTE);
    if (subs_[2]) subs_[2]->SetValue(now, &scale, 1, CTRL_ABSOLUTE);
    if (ILockedTrackImp* lock = GetLockedTrackInterface(from)) SetLocked(lock->GetLocked());
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

bool RigControl::ChangeParents(TimeValue t, const Matrix3&, const Matrix3& newP,
                               const Matrix3& tm) {
    SetXFormPacket packet;
    packet.command = XFORM_SET;
    packet.tmParent = newP;
    packet.tmAxis = tm;
    SetValue(t, &packet, 1, CTRL_RELATIVE);
    return true;
}

int RigControl::Display(TimeValue, INode* node, ViewExp* vpt, int) {
    if (!pblock_) return 0;
    GraphicsWindow* gw = vpt ? vpt->getGW() : nullptr;
    if (!gw || !GetFigureMode() || !node || !node->Selected()) return 1;
    gw->setColor(TEXT_COLOR, GetUIColor(COLOR_VP_LABELS));
    const IPoint3 at{gw->getWinSizeX() / 2, int(0.95f * float(gw->getWinSizeY())), 0};
    gw->wText(&at, GetString(IDS_FIGURE_MODE_ON));
    return 1;
}

void RigControl::BeginEditParams(IObjParam* ip, uint32_t flags, Animatable* prev) {
    if (GetLocked() || !(flags & BEGIN_EDIT_MOTION) || edit_ || !pblock_) return;
    edit_ = new EditState{ip, flags};
    const int titles[3] = {IDS_TRANSFORM, IDS_OFFSET_TRANSFORM, IDS_RIG_CONTROL_CLASS};
    for (int i = 0; i < 3; ++i)
        edit_->rollups[i] =
            GetPanelService().AddRollup(this, ClassID(), WStr(GetString(titles[i])));
    edit_->subOpen = subs_[subPanel];
    if (edit_->subOpen) edit_->subOpen->BeginEditParams(ip, flags, prev);
    GetCOREInterface()->RegisterTimeChangeCallback(this);
}

void RigControl::EndEditParams(IObjParam* ip, uint32_t flags, Animatable* next) {
    if (!edit_) return;
    GetCOREInterface()->UnRegisterTimeChangeCallback(this);
    if (edit_->subOpen) edit_->subOpen->EndEditParams(ip, flags, next);
    for (int i = 2; i >= 0; --i) GetPanelService().DeleteRollup(edit_->rollups[i]);
    delete edit_;
    edit_ = nullptr;
}

void RigControl::RefreshRollups(bool offsetOnly) {
    if (!edit_) return;
    for (int i = 0; i < 3; ++i)
        if (!offsetOnly || i == 1) GetPanelService().RefreshRollup(edit_->rollups[i]);
}

void RigControl::TimeChanged(TimeValue) {
    RefreshRollups(false);
}

RefResult RigControl::NotifyRefChanged(const Interval&, ReferenceTarget* target, PartID&,
                                       RefMessage message, bool) {
    if (message != REFMSG_CHANGE) return REF_SUCCEED;
    if (target != pblock_ || !pblock_) {
        if (edit_) GetPanelService().RefreshRollup(edit_->rollups[0]);
        return REF_SUCCEED;
    }
    offset_->current = false;
    int tab = 0;
    RefreshRollups(pblock_->LastNotifyParamID(tab) == kOffsetTM);
    return REF_SUCCEED;
}

ReferenceTarget* RigControl::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](RigControl& to) { to.SetLocked(GetLocked()); });
}

IOResult RigControl::Save(ISave* isave) {
    WriteFlagChunk(isave, RIG_CONTROL_LOCKED_CHUNK, GetLocked());
    return IO_OK;
}

IOResult RigControl::Load(ILoad* iload) {
    return ReadChunks(iload, [&](uint16_t id) {
        if (id != RIG_CONTROL_LOCKED_CHUNK) return IO_OK;
        bool locked = false;
        if (ReadFlag(iload, locked) != IO_OK) return IO_ERROR;
        SetLocked(locked);
        return IO_OK;
    });
}

}  // namespace zorvanta
