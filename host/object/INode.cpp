#include "host/object/INode.h"

#include <algorithm>
#include <array>

#include "host/math/MatrixHelpers.h"
#include "host/object/Control.h"
#include "host/object/Hold.h"
#include "host/object/ILoad.h"
#include "host/object/ISave.h"
#include "host/object/Interface.h"
#include "host/object/Mtl.h"
#include "host/object/NodeChunkIds.h"
#include "host/object/Object.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/SnapshotRestore.h"

namespace host {

// A node's place before and after it moved in the hierarchy, entered or left the scene.
class INode::LinkRestore : public RestoreObj {
public:
    LinkRestore(INode* node, INode* to)
        : pins_{TargetPin(node), TargetPin(node->parent_), TargetPin(to)},
          node_(node),
          from_(node->parent_),
          fromIndex_(from_ ? node->IndexInParent() : -1),
          to_(to) {}
    void Restore(bool) override { node_->Link(from_, fromIndex_); }
    void Redo() override { node_->Link(to_, -1); }
    WStr Description() override { return WStr(L"Link"); }

private:
    TargetPin pins_[3];
    INode* node_;
    INode* from_;
    int fromIndex_;
    INode* to_;
};

INode::INode() = default;

INode::~INode() = default;

INode* INode::GetChildNode(int i) {
    return i >= 0 && i < NumberOfChildren() ? children_[size_t(i)] : nullptr;
}

int INode::IndexInParent() const {
    const auto& siblings = parent_->children_;
    return int(std::find(siblings.begin(), siblings.end(), this) - siblings.begin());
}

bool INode::AttachChild(INode* child, bool keepTM) {
    if (!child || child->isRoot_) return false;
    for (INode* n = this; n; n = n->parent_)
        if (n == child) return false;
    const TimeValue t = GetCOREInterface()->GetTime();
    const Matrix3 world = keepTM ? child->GetNodeTM(t) : Matrix3();
    const Matrix3 oldParent = keepTM ? child->GetParentTM(t) : Matrix3();
    Relink(child, this);
    if (!keepTM) return true;
    Control* tmc = child->GetTMController();
    if (!tmc || !tmc->ChangeParents(t, oldParent, GetNodeTM(t), world)) child->SetNodeTM(t, world);
    return true;
}

void INode::Detach(TimeValue t, bool keepTM) {
    if (isRoot_ || !inScene_) return;
    const Matrix3 world = GetNodeTM(t);
    Relink(this, GetCOREInterface()->GetRootNode());
    if (keepTM) SetNodeTM(t, world);
}

void INode::Relink(INode* node, INode* parent) {
    if (theHold.Holding()) theHold.Put(new LinkRestore(node, parent));
    node->Link(parent, -1);
}

void INode::Link(INode* parent, int index) {
    const TargetPin keep(this);  // a node leaving the scene may have nothing else holding it
    if (parent_) {
        auto& siblings = parent_->children_;
        siblings.erase(std::find(siblings.begin(), siblings.end(), this));
    }
    parent_ = parent;
    if (parent) {
        auto& siblings = parent->children_;
        const size_t at = index < 0 ? siblings.size() : std::min(size_t(index), siblings.size());
        siblings.insert(siblings.begin() + std::ptrdiff_t(at), this);
    }
    const bool inScene = parent && parent->inScene_;
    if (inScene != inScene_) GetCOREInterface()->GetScene().Membership(this, inScene);
    InvalidateTreeTM();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_NODE_LINK);
}

Matrix3 INode::ComputeNodeTM(TimeValue t, Interval* valid) {
    if (evaluating_) {
        if (valid) *valid &= Interval(t, t);
        return tm_;
    }
    EvaluateTM(t);
    if (valid) *valid &= tmValid_;
    return tm_;
}

void INode::EvaluateTM(TimeValue t) {
    evaluating_ = true;
    Interval valid = FOREVER;
    Matrix3 tm = parent_ ? parent_->GetNodeTM(t, &valid) : Matrix3();
    if (tmControl_) tmControl_->GetValue(t, &tm, valid, CTRL_RELATIVE);
    tm_ = tm;
    tmValid_ = valid;
    evaluating_ = false;
}

Matrix3 INode::GetParentTM(TimeValue t) {
    return parent_ ? parent_->GetNodeTM(t) : Matrix3();
}

void INode::DropTMCaches() {
    tmValid_ = NEVER;
    for (INode* child : children_) child->DropTMCaches();
}

void INode::InvalidateTreeTM() {
    tmValid_ = NEVER;
    for (INode* child : children_) child->InvalidateTreeTM();
    NotifyDependents(FOREVER, PART_TM, REFMSG_CHANGE);
}

void INode::Transform(TimeValue t, SetXFormPacket& packet) {
    if (!tmControl_) return;
    packet.tmParent = GetParentTM(t);
    tmControl_->SetValue(t, &packet, 1, CTRL_RELATIVE);
}

void INode::SetNodeTM(TimeValue t, const Matrix3& tm) {
    SetXFormPacket packet;
    packet.command = XFORM_SET;
    packet.tmAxis = tm;
    Transform(t, packet);
}

Matrix3 INode::GetObjectTM(TimeValue t, Interval* valid) {
    const Matrix3 tm = GetNodeTM(t, valid);
    const Properties& p = props_;
    if (p.offsetPos == Point3() && p.offsetRot.IsIdentity() && p.offsetScale == ScaleValue())
        return tm;
    return ComposeMatrix(p.offsetPos, p.offsetRot, p.offsetScale) * tm;
}

void INode::SetObjOffsetPos(const Point3& p) {
    EditProperties([&](Properties& props) { props.offsetPos = p; });
}

void INode::SetObjOffsetRot(const Quat& q) {
    EditProperties([&](Properties& props) { props.offsetRot = q; });
}

void INode::SetObjOffsetScale(const ScaleValue& s) {
    EditProperties([&](Properties& props) { props.offsetScale = s; });
}

Point3 INode::FreeComponents(const Point3& v, const Matrix3& frame, int type) const {
    if (!(props_.locks & (7u << (3 * type)))) return v;
    const Matrix3 axes = RotationOf(frame);
    Point3 local = VectorTransform(Inverse(axes), v);
    for (int axis = 0; axis < 3; ++axis)
        if (GetTransformLock(type, axis)) local[axis] = 0.0f;
    return VectorTransform(axes, local);
}

void INode::Move(TimeValue t, const Matrix3& tmAxis, const Point3& val, bool localOrigin) {
    SetXFormPacket packet;
    packet.command = XFORM_MOVE;
    packet.tmAxis = tmAxis;
    packet.p = FreeComponents(val, GetParentTM(t), INODE_LOCKPOS);
    packet.localOrigin = localOrigin;
    Transform(t, packet);
}

void INode::Rotate(TimeValue t, const Matrix3& tmAxis, const AngAxis& val, bool localOrigin) {
    // The axis through the node's own axes, locked components taken out.
    const Matrix3 axes = RotationOf(tmAxis);
    const Point3 world =
        FreeComponents(VectorTransform(axes, val.axis), GetNodeTM(t), INODE_LOCKROT);
    if (Length(world) < 1e-6f || val.angle == 0.0f) return;
    SetXFormPacket packet;
    packet.command = XFORM_ROTATE;
    packet.tmAxis = tmAxis;
    packet.aa = AngAxis(Normalize(VectorTransform(Inverse(axes), world)), val.angle);
    packet.q = Quat(packet.aa);
    packet.localOrigin = localOrigin;
    Transform(t, packet);
}

void INode::Rotate(TimeValue t, const Matrix3& tmAxis, const Quat& val, bool localOrigin) {
    Rotate(t, tmAxis, AngAxis(val), localOrigin);
}

void INode::Scale(TimeValue t, const Matrix3& tmAxis, const Point3& val, bool localOrigin) {
    SetXFormPacket packet;
    packet.command = XFORM_SCALE;
    packet.tmAxis = tmAxis;
    packet.p = val;
    for (int axis = 0; axis < 3; ++axis)
        if (GetTransformLock(INODE_LOCKSCALE, axis)) packet.p[axis] = 1.0f;
    packet.localOrigin = localOrigin;
    Transform(t, packet);
}

void INode::SetObjectRef(Object* obj) {
    ReplaceReference(OBJ_REF, obj);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
}

ObjectState INode::EvalWorldState(TimeValue t) {
    if (!wsValid_.InInterval(t)) {
        ws_ = object_ ? object_->Eval(t) : ObjectState{};
        wsValid_ = object_ ? object_->ObjectValidity(t) : FOREVER;
    }
    return ws_;
}

bool INode::SetTMController(Control* c) {
    if (!c || c->SuperClassID() != CTRL_MATRIX3_CLASS_ID) return false;
    ReplaceReference(TM_REF, c);
    InvalidateTreeTM();
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CONTROLREF_CHANGE);
    return true;
}

void INode::SetVisController(Control* c) {
    if (c && c->SuperClassID() != CTRL_FLOAT_CLASS_ID) return;
    ReplaceReference(VIS_REF, c);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CONTROLREF_CHANGE);
}

void INode::SetMtl(Mtl* m) {
    ReplaceReference(MTL_REF, m);
}

void INode::SetName(const wchar_t* name) {
    const WStr old = props_.name;
    EditProperties([&](Properties& p) { p.name = WStr(name ? name : L""); },
                   REFMSG_NODE_NAMECHANGE);
    GetCOREInterface()->GetScene().Renamed(this, old);
}

void INode::SetWireColor(COLORREF color) {
    EditProperties([&](Properties& p) { p.wireColor = color; });
}

void INode::SetLayer(ILayer* layer) {
    EditProperties([&](Properties& p) { p.layer = layer; });
}

INode* INode::CloneProperties() const {
    auto* node = new INode;
    node->props_ = props_;
    return node;
}

void INode::SetFlag(FlagBit bit, bool on) {
    if (Flag(bit) == on) return;
    EditProperties([&](Properties& p) { p.flags = on ? p.flags | bit : p.flags & ~bit; });
}

void INode::SetBoneScaleType(int type) {
    EditProperties([&](Properties& p) { p.boneScaleType = type; });
}

void INode::ShowBone(int mode) {
    EditProperties([&](Properties& p) { p.showBone = mode; });
}

float INode::GetVisibility(TimeValue t, Interval* valid) {
    if (!visControl_) return props_.visibility;
    float v = 1.0f;
    Interval iv = FOREVER;
    visControl_->GetValue(t, &v, iv);
    if (valid) *valid &= iv;
    return v;
}

void INode::SetVisibility(TimeValue t, float v) {
    if (visControl_)
        visControl_->SetValue(t, &v);
    else
        EditProperties([&](Properties& p) { p.visibility = v; });
}

bool INode::GetTransformLock(int type, int axis) const {
    if (type < 0 || type > 2 || axis < 0 || axis > 2) return false;
    return (props_.locks >> (3 * type + axis)) & 1u;
}

void INode::SetTransformLock(int type, int axis, bool on) {
    if (type < 0 || type > 2 || axis < 0 || axis > 2 || GetTransformLock(type, axis) == on) return;
    const uint32_t bit = 1u << (3 * type + axis);
    EditProperties([&](Properties& p) { p.locks = on ? p.locks | bit : p.locks & ~bit; });
}

template <typename Edit>
void INode::EditProperties(Edit edit, RefMessage message) {
    if (theHold.Holding())
        theHold.Put(new SnapshotRestore<INode, Properties>(
            this, &INode::SaveProperties, &INode::LoadProperties, L"Node Properties"));
    edit(props_);
    NotifyDependents(FOREVER, PART_ALL, message);
}

void INode::LoadProperties(const Properties& p) {
    const bool renamed = !(p.name == props_.name);
    const WStr old = props_.name;
    props_ = p;
    if (renamed) GetCOREInterface()->GetScene().Renamed(this, old);
    NotifyDependents(FOREVER, PART_ALL, renamed ? REFMSG_NODE_NAMECHANGE : REFMSG_CHANGE);
}

IOResult INode::Save(ISave* isave) {
    using namespace chunks;
    isave->BeginChunk(NODE_NAME);
    isave->WriteWString(props_.name);
    isave->EndChunk();
    isave->WriteChunk(NODE_WIRE_COLOR, props_.wireColor);
    isave->WriteChunk(NODE_VISIBILITY, props_.visibility);
    isave->WriteChunk(NODE_FLAGS, props_.flags);
    isave->WriteChunk(NODE_BONE, std::array<int32_t, 2>{props_.boneScaleType, props_.showBone});
    isave->WriteChunk(NODE_LOCKS, props_.locks);
    isave->BeginChunk(NODE_OFFSET);
    isave->WriteValue(props_.offsetPos);
    isave->WriteValue(props_.offsetRot);
    isave->WriteValue(props_.offsetScale);
    isave->EndChunk();
    isave->WriteChunk(NODE_HANDLE, handle_);
    isave->BeginChunk(NODE_CHILDREN);
    isave->WriteValue(uint32_t(children_.size()));
    for (INode* child : children_) isave->WriteValue(int32_t(isave->GetRefID(child)));
    isave->EndChunk();
    return IO_OK;
}

IOResult INode::Load(ILoad* iload) {
    return chunkio::ReadChunks(iload, [this, iload](uint16_t) { return LoadChunk(iload); });
}

IOResult INode::LoadChunk(ILoad* iload) {
    using namespace chunks;
    std::array<int32_t, 2> bone{};
    switch (iload->CurChunkID()) {
        case NODE_NAME:
            return iload->ReadWString(props_.name);
        case NODE_WIRE_COLOR:
            return iload->ReadValue(props_.wireColor);
        case NODE_VISIBILITY:
            return iload->ReadValue(props_.visibility);
        case NODE_FLAGS:
            return iload->ReadValue(props_.flags);
        case NODE_BONE:
            if (iload->ReadValue(bone) != IO_OK) return IO_ERROR;
            props_.boneScaleType = bone[0];
            props_.showBone = bone[1];
            return IO_OK;
        case NODE_LOCKS:
            return iload->ReadValue(props_.locks);
        case NODE_OFFSET:
            if (iload->ReadValue(props_.offsetPos) != IO_OK ||
                iload->ReadValue(props_.offsetRot) != IO_OK)
                return IO_ERROR;
            return iload->ReadValue(props_.offsetScale);
        case NODE_HANDLE:
            return iload->ReadValue(handle_);
        case NODE_CHILDREN:
            return LoadChildren(iload);
        default:
            return IO_OK;
    }
}

IOResult INode::LoadChildren(ILoad* iload) {
    uint32_t count = 0;
    if (iload->ReadCount(count, sizeof(int32_t)) != IO_OK) return IO_ERROR;
    for (uint32_t i = 0; i < count; ++i) {
        int32_t id = -1;
        if (iload->ReadValue(id) != IO_OK) return IO_ERROR;
        // In the order saved, once every node exists; a node that would become its own
        // ancestor is refused by AttachChild.
        iload->RecordBackpatch(id, [this](ReferenceTarget* target) {
            if (auto* child = dynamic_cast<INode*>(target)) AttachChild(child, false);
        });
    }
    return IO_OK;
}

ReferenceTarget* INode::GetReference(int i) {
    switch (i) {
        case TM_REF:
            return tmControl_;
        case OBJ_REF:
            return object_;
        case VIS_REF:
            return visControl_;
        case MTL_REF:
            return mtl_;
        default:
            return nullptr;
    }
}

void INode::SetReference(int i, ReferenceTarget* target) {
    switch (i) {
        case TM_REF:
            tmControl_ = ControlOf(target, CTRL_MATRIX3_CLASS_ID);
            DropTMCaches();
            break;
        case OBJ_REF:
            object_ = dynamic_cast<Object*>(target);
            wsValid_ = NEVER;
            break;
        case VIS_REF:
            visControl_ = ControlOf(target, CTRL_FLOAT_CLASS_ID);
            break;
        case MTL_REF:
            mtl_ = dynamic_cast<Mtl*>(target);
            break;
        default:
            break;
    }
}

RefResult INode::NotifyRefChanged(const Interval&, ReferenceTarget* hTarget, PartID&,
                                  RefMessage message, bool) {
    if (message != REFMSG_CHANGE) return REF_SUCCEED;
    if (hTarget == tmControl_) {
        // The subtree's dependents hear of it as a transform change instead.
        InvalidateTreeTM();
        return REF_STOP;
    }
    if (hTarget == object_) wsValid_ = NEVER;
    return REF_SUCCEED;
}

Animatable* INode::SubAnim(int i) {
    switch (i) {
        case 0:
            return visControl_;
        case 1:
            return tmControl_;
        case 2:
            return object_;
        default:
            return nullptr;
    }
}

WStr INode::SubAnimName(int i) {
    static const wchar_t* const kNames[] = {L"Visibility", L"Transform", L"Object"};
    return i >= 0 && i < 3 ? WStr(kNames[i]) : WStr();
}

INode* FindOwnerNode(Control* c) {
    if (!c) return nullptr;
    DependentIterator it(c);
    while (ReferenceMaker* maker = it.Next())
        if (auto* node = dynamic_cast<INode*>(maker); node && node->GetTMController() == c)
            return node;
    return nullptr;
}

INode* FindObjectNode(ReferenceTarget* obj) {
    struct Finder : DependentEnumProc {
        INode* node = nullptr;
        DepEnumResult proc(ReferenceMaker* maker) override {
            if (maker->SuperClassID() == BASENODE_CLASS_ID) {
                node = static_cast<INode*>(maker);
                return DEP_ENUM_HALT;
            }
            return maker->SuperClassID() == GEN_DERIVOB_CLASS_ID ? DEP_ENUM_CONTINUE
                                                                 : DEP_ENUM_SKIP;
        }
    } finder;
    if (obj) obj->DoEnumDependents(&finder);
    return finder.node;
}

}  // namespace host
