#include "host/object/IParamBlock2.h"

#include <cstdio>

#include "host/object/Animate.h"
#include "host/object/ClassDesc2.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/ObjectChunkIds.h"
#include "host/object/RemapDir.h"

namespace host {

namespace {

// What a parameter element without a controller shows as a sub-anim.
class PseudoAnimatable : public Animatable {
public:
    Class_ID ClassID() override { return Class_ID(0xEFFFFFFF, 0); }
    SClass_ID SuperClassID() override { return 0x900F; }
};

PseudoAnimatable thePseudoAnimatable;

bool IsReferenceType(ParamType2 t) {
    return KindOf(t) == ValueKind::Reference;
}

// What the reference slot of a parameter of type t takes from target, null when it
// takes nothing of its class: a node or a controller for those types, any target for
// TYPE_REFTARG, and for an animatable value its controller, which for a float must be a
// float controller (the block reads the float through it).
ReferenceTarget* SlotTarget(ParamType2 t, ReferenceTarget* target) {
    switch (BaseType(t)) {
        case TYPE_INODE:
            return dynamic_cast<INode*>(target);
        case TYPE_REFTARG:
            return target;
        default:
            return KindOf(t) == ValueKind::Float ? ControlOf(target, CTRL_FLOAT_CLASS_ID)
                                                 : dynamic_cast<Control*>(target);
    }
}

}  // namespace

// Undo of one stored value; the accessor runs again on the value put back.
class IParamBlock2::ValueRestore : public RestoreObj {
public:
    ValueRestore(IParamBlock2* pb, int index, int tab, const PB2Value& before,
                 const PB2Value& after)
        : pin_(pb), pb_(pb), index_(index), tab_(tab), before_(before), after_(after) {}
    void Restore(bool) override { Put(before_); }
    void Redo() override { Put(after_); }
    WStr Description() override { return WStr(L"Parameter"); }

private:
    void Put(const PB2Value& value) {
        PB2Value v = value;
        const ParamDef& def = pb_->desc_->Param(index_);
        if (def.accessor && !IsLoading()) def.accessor->Set(v, pb_->owner_, def.id, tab_, 0);
        pb_->values_[size_t(index_)][size_t(tab_)].v = v;
        pb_->Changed(def.id, tab_);
    }
    TargetPin pin_;
    IParamBlock2* pb_;
    int index_, tab_;
    PB2Value before_, after_;
};

// Undo of elements inserted into or deleted from a table. Their references are cut
// (and recorded) before a deletion and set (and recorded) after an insertion, so undo,
// running last to first, meets the elements without references.
class IParamBlock2::TableRestore : public RestoreObj {
public:
    TableRestore(IParamBlock2* pb, int index, int at, std::vector<PB2Value> values, bool inserted)
        : pin_(pb),
          pb_(pb),
          index_(index),
          at_(at),
          values_(std::move(values)),
          inserted_(inserted) {}
    void Restore(bool) override { Apply(!inserted_); }
    void Redo() override { Apply(inserted_); }
    WStr Description() override { return WStr(L"Parameter Table"); }

private:
    void Apply(bool insert) {
        if (insert)
            pb_->InsertElements(index_, at_, values_);
        else
            pb_->EraseElements(index_, at_, int(values_.size()));
    }
    TargetPin pin_;
    IParamBlock2* pb_;
    int index_, at_;
    std::vector<PB2Value> values_;
    bool inserted_;
};

void ClassDesc2::MakeAutoParamBlocks(ReferenceMaker* owner) {
    for (ParamBlockDesc2* pbd : blocks_)
        if (pbd->Flags() & P_AUTO_CONSTRUCT)
            owner->ReplaceReference(pbd->RefNo(), new IParamBlock2(pbd, owner));
}

IParamBlock2::IParamBlock2(ParamBlockDesc2* desc, ReferenceMaker* owner) : owner_(owner) {
    Init(desc, desc->GetClassDesc());
}

IParamBlock2::IParamBlock2(bool) {}

void IParamBlock2::Init(ParamBlockDesc2* desc, ClassDesc2* definingClass) {
    desc_ = desc;
    definingClass_ = definingClass;
    values_.assign(size_t(desc->Count()), {});
    for (int i = 0; i < desc->Count(); ++i) {
        const ParamDef& def = desc->Param(i);
        values_[size_t(i)].assign(IsTable(def.type) ? size_t(def.tableSize) : 1,
                                  Slot{def.def, nullptr});
    }
}

bool IParamBlock2::HoldsReferences(int index) const {
    const ParamDef& def = desc_->Param(index);
    return IsReferenceType(def.type) || (def.flags & P_ANIMATABLE);
}

int IParamBlock2::FindElement(ParamID id, int tab) const {
    const int index = desc_->IDtoIndex(id);
    return index >= 0 && tab >= 0 && size_t(tab) < values_[size_t(index)].size() ? index : -1;
}

int IParamBlock2::Find(ParamID id, Kind kind, int tab) const {
    const int index = FindElement(id, tab);
    return index >= 0 && KindOf(desc_->Param(index).type) == kind ? index : -1;
}

int IParamBlock2::FindTable(ParamID id) const {
    const int index = desc_->IDtoIndex(id);
    return index >= 0 && IsTable(desc_->Param(index).type) ? index : -1;
}

bool IParamBlock2::IsControlled(int index, int tab) const {
    return values_[size_t(index)][size_t(tab)].ref && !IsReferenceType(desc_->Param(index).type);
}

void IParamBlock2::RunGetAccessor(int index, int tab, TimeValue t, PB2Value& v, Interval& valid) {
    const ParamDef& def = desc_->Param(index);
    if (def.accessor && !IsLoading()) def.accessor->Get(v, owner_, def.id, tab, t, valid);
}

void IParamBlock2::TellTable(int index, tab_changes change, int tab, int count) {
    const ParamDef& def = desc_->Param(index);
    if (def.accessor && !IsLoading()) def.accessor->TabChanged(change, owner_, def.id, tab, count);
}

float IParamBlock2::GetFloat(ParamID id, TimeValue t, int tab) {
    const int index = Find(id, Kind::Float, tab);
    if (index < 0) return 0.0f;
    const Slot& slot = values_[size_t(index)][size_t(tab)];
    float f = slot.v.f;
    Interval valid = FOREVER;
    if (IsControlled(index, tab)) static_cast<Control*>(slot.ref)->GetValue(t, &f, valid);
    if (!desc_->Param(index).accessor) return f;
    PB2Value v;
    v.f = f;
    RunGetAccessor(index, tab, t, v, valid);
    return v.f;
}

bool IParamBlock2::GetValue(ParamID id, TimeValue t, PB2Value& v, Interval& valid, int tab) {
    const int index = FindElement(id, tab);
    if (index < 0) return false;
    const Slot& slot = values_[size_t(index)][size_t(tab)];
    const ParamType2 type = desc_->Param(index).type;
    v = slot.v;
    if (IsControlled(index, tab) && KindOf(type) == Kind::Float)
        static_cast<Control*>(slot.ref)->GetValue(t, &v.f, valid);
    if (IsReferenceType(type)) v.r = slot.ref;
    RunGetAccessor(index, tab, t, v, valid);
    return true;
}

template <typename T>
T IParamBlock2::Read(ParamID id, TimeValue t, int tab, Kind kind, T PB2Value::*field) {
    PB2Value v;
    Interval valid = FOREVER;
    if (Find(id, kind, tab) < 0) return T{};
    GetValue(id, t, v, valid, tab);
    return v.*field;
}

int IParamBlock2::GetInt(ParamID id, TimeValue t, int tab) {
    return Read(id, t, tab, Kind::Int, &PB2Value::i);
}
Point3 IParamBlock2::GetPoint3(ParamID id, TimeValue t, int tab) {
    return Read(id, t, tab, Kind::Point3, &PB2Value::p);
}
Point2 IParamBlock2::GetPoint2(ParamID id, TimeValue t, int tab) {
    return Read(id, t, tab, Kind::Point2, &PB2Value::p2);
}
Matrix3 IParamBlock2::GetMatrix3(ParamID id, TimeValue t, int tab) {
    return Read(id, t, tab, Kind::Matrix, &PB2Value::m);
}
WStr IParamBlock2::GetStr(ParamID id, TimeValue t, int tab) {
    return Read(id, t, tab, Kind::String, &PB2Value::s);
}
ReferenceTarget* IParamBlock2::GetReferenceTarget(ParamID id, TimeValue t, int tab) {
    return Read(id, t, tab, Kind::Reference, &PB2Value::r);
}

template <typename T>
bool IParamBlock2::Write(ParamID id, TimeValue t, int tab, Kind kind, T PB2Value::*field,
                         const T& value) {
    PB2Value v;
    v.*field = value;
    return Set(id, t, v, kind, tab);
}

bool IParamBlock2::SetValue(ParamID id, TimeValue t, float v, int tab) {
    return Write(id, t, tab, Kind::Float, &PB2Value::f, v);
}
bool IParamBlock2::SetValue(ParamID id, TimeValue t, int v, int tab) {
    return Write(id, t, tab, Kind::Int, &PB2Value::i, v);
}
bool IParamBlock2::SetValue(ParamID id, TimeValue t, const Point3& v, int tab) {
    return Write(id, t, tab, Kind::Point3, &PB2Value::p, v);
}
bool IParamBlock2::SetValue(ParamID id, TimeValue t, const Point2& v, int tab) {
    return Write(id, t, tab, Kind::Point2, &PB2Value::p2, v);
}
bool IParamBlock2::SetValue(ParamID id, TimeValue t, const Matrix3& v, int tab) {
    return Write(id, t, tab, Kind::Matrix, &PB2Value::m, v);
}
bool IParamBlock2::SetValue(ParamID id, TimeValue t, const wchar_t* v, int tab) {
    return Write(id, t, tab, Kind::String, &PB2Value::s, WStr(v));
}
bool IParamBlock2::SetValue(ParamID id, TimeValue t, ReferenceTarget* v, int tab) {
    return Write(id, t, tab, Kind::Reference, &PB2Value::r, v);
}

bool IParamBlock2::Set(ParamID id, TimeValue t, PB2Value v, Kind kind, int tab) {
    const int index = Find(id, kind, tab);
    if (index < 0) return false;
    const ParamDef& def = desc_->Param(index);
    if (def.validator && !def.validator->Validate(v)) return false;
    if (def.accessor && !IsLoading()) def.accessor->Set(v, owner_, id, tab, t);
    Slot& slot = values_[size_t(index)][size_t(tab)];
    if (kind == Kind::Reference) {
        ReplaceReference(RefOf(index, tab), v.r);
    } else if (IsControlled(index, tab) && kind == Kind::Float) {
        static_cast<Control*>(slot.ref)->SetValue(t, &v.f);
    } else if ((def.flags & P_ANIMATABLE) && kind == Kind::Float && Animating()) {
        Control* c = NewDefaultFloatController();
        if (!c) {
            Store(index, tab, v);
        } else {
            // The first key of a track set away from the start keeps the value it had
            // there: a key at 0 with the old constant, then the new key.
            c->SetValue(0, &slot.v.f);
            ReplaceReference(RefOf(index, tab), c);
            c->SetValue(t, &v.f);
        }
    } else {
        Store(index, tab, v);
    }
    Changed(id, tab);
    return true;
}

void IParamBlock2::Store(int index, int tab, const PB2Value& v) {
    Slot& slot = values_[size_t(index)][size_t(tab)];
    if (theHold.Holding()) theHold.Put(new ValueRestore(this, index, tab, slot.v, v));
    slot.v = v;
}

void IParamBlock2::Changed(ParamID id, int tab) {
    lastParam_ = id;
    lastTab_ = tab;
    if (notify_) NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

int IParamBlock2::Count(ParamID id) const {
    const int index = desc_->IDtoIndex(id);
    return index < 0 ? -1 : int(values_[size_t(index)].size());
}

void IParamBlock2::InsertElements(int index, int at, const std::vector<PB2Value>& values) {
    auto& elements = values_[size_t(index)];
    std::vector<Slot> slots;
    for (const PB2Value& v : values) slots.push_back({v, nullptr});
    elements.insert(elements.begin() + at, slots.begin(), slots.end());
    TellTable(index, tab_insert, at, int(values.size()));
    Changed(desc_->Param(index).id, at);
}

void IParamBlock2::EraseElements(int index, int at, int n) {
    auto& elements = values_[size_t(index)];
    elements.erase(elements.begin() + at, elements.begin() + at + n);
    TellTable(index, tab_delete, at, n);
    Changed(desc_->Param(index).id, at);
}

bool IParamBlock2::Insert(ParamID id, int at, int n) {
    const int index = FindTable(id);
    if (index < 0 || n < 0 || at < 0 || size_t(at) > values_[size_t(index)].size()) return false;
    const std::vector<PB2Value> defaults(size_t(n), desc_->Param(index).def);
    if (theHold.Holding()) theHold.Put(new TableRestore(this, index, at, defaults, true));
    InsertElements(index, at, defaults);
    return true;
}

int IParamBlock2::Append(ParamID id, int n) {
    const int at = Count(id);
    return FindTable(id) >= 0 && Insert(id, at, n) ? at : -1;
}

bool IParamBlock2::Delete(ParamID id, int start, int n) {
    const int index = FindTable(id);
    const int count = Count(id);
    if (index < 0 || n < 0 || start < 0 || start + n > count) return false;
    std::vector<PB2Value> removed;
    for (int tab = start; tab < start + n; ++tab) {
        if (HoldsReferences(index)) ReplaceReference(RefOf(index, tab), nullptr);
        removed.push_back(values_[size_t(index)][size_t(tab)].v);
    }
    if (theHold.Holding()) theHold.Put(new TableRestore(this, index, start, removed, false));
    EraseElements(index, start, n);
    return true;
}

bool IParamBlock2::SetCount(ParamID id, int n) {
    const int count = Count(id);
    if (FindTable(id) < 0 || n < 0) return false;
    return n >= count ? Insert(id, count, n - count) : Delete(id, n, count - n);
}

Control* IParamBlock2::GetController(ParamID id, int tab) {
    const int index = FindElement(id, tab);
    return index >= 0 && IsControlled(index, tab)
               ? static_cast<Control*>(values_[size_t(index)][size_t(tab)].ref)
               : nullptr;
}

bool IParamBlock2::SetController(ParamID id, int tab, Control* c, bool preserveValue) {
    const int index = FindElement(id, tab);
    if (index < 0 || !(desc_->Param(index).flags & P_ANIMATABLE)) return false;
    if (c && preserveValue && KindOf(desc_->Param(index).type) == Kind::Float) {
        float value = GetFloat(id, 0, tab);
        SuspendAnimate();
        c->SetValue(0, &value);
        ResumeAnimate();
    }
    ReplaceReference(RefOf(index, tab), c);
    Changed(id, tab);
    return true;
}

ParamID IParamBlock2::LastNotifyParamID(int& tab) const {
    tab = lastTab_;
    return lastParam_;
}

int IParamBlock2::RefOf(int index, int tab) const {
    int slot = 0;
    for (int p = 0; p < index; ++p)
        if (HoldsReferences(p)) slot += int(values_[size_t(p)].size());
    return slot + tab;
}

IParamBlock2::Element IParamBlock2::RefElement(int i) const {
    for (int p = 0; p < NumParams(); ++p) {
        if (!HoldsReferences(p)) continue;
        const int n = int(values_[size_t(p)].size());
        if (i < n) return {p, i};
        i -= n;
    }
    return {};
}

IParamBlock2::Element IParamBlock2::SubElement(int i) const {
    for (int p = 0; p < NumParams(); ++p) {
        if (!(desc_->Param(p).flags & P_ANIMATABLE)) continue;
        const int n = int(values_[size_t(p)].size());
        if (i < n) return {p, i};
        i -= n;
    }
    return {};
}

int IParamBlock2::NumRefs() {
    int n = 0;
    for (int p = 0; p < NumParams(); ++p)
        if (HoldsReferences(p)) n += int(values_[size_t(p)].size());
    return n;
}

ReferenceTarget* IParamBlock2::GetReference(int i) {
    const Element e = RefElement(i);
    return e.index < 0 ? nullptr : values_[size_t(e.index)][size_t(e.tab)].ref;
}

void IParamBlock2::SetReference(int i, ReferenceTarget* t) {
    const Element e = RefElement(i);
    if (e.index < 0) return;  // a slot the block does not have (a file saved with more)
    const ParamDef& def = desc_->Param(e.index);
    t = SlotTarget(def.type, t);
    values_[size_t(e.index)][size_t(e.tab)].ref = t;
    // Undo and redo put references back without passing through Set: the accessor of
    // a node or target parameter sees them here.
    if (!theHold.RestoreOrRedoing() || !IsReferenceType(def.type) || !def.accessor || IsLoading())
        return;
    PB2Value v;
    v.r = t;
    def.accessor->Set(v, owner_, def.id, e.tab, 0);
}

int IParamBlock2::NumSubs() {
    int n = 0;
    for (int p = 0; p < NumParams(); ++p)
        if (desc_->Param(p).flags & P_ANIMATABLE) n += int(values_[size_t(p)].size());
    return n;
}

Animatable* IParamBlock2::SubAnim(int i) {
    const Element e = SubElement(i);
    if (e.index < 0) return nullptr;
    ReferenceTarget* c = values_[size_t(e.index)][size_t(e.tab)].ref;
    return c ? static_cast<Animatable*>(c) : &thePseudoAnimatable;
}

WStr IParamBlock2::SubAnimName(int i) {
    const Element e = SubElement(i);
    return e.index < 0 ? WStr() : WStr(desc_->Param(e.index).name);
}

int IParamBlock2::SubToParamIndex(int i) const {
    return SubElement(i).index;
}

ParamDimension* IParamBlock2::SubAnimDimension(int i) {
    const Element e = SubElement(i);
    switch (e.index < 0 ? TYPE_VOID : BaseType(desc_->Param(e.index).type)) {
        case TYPE_ANGLE:
            return stdAngleDim();
        case TYPE_PCNT_FRAC:
            return stdPercentDim();
        case TYPE_WORLD:
            return stdWorldDim();
        default:
            return defaultDim();
    }
}

RefResult IParamBlock2::NotifyRefChanged(const Interval&, ReferenceTarget* hTarget, PartID&,
                                         RefMessage message, bool) {
    if (!notify_) return REF_STOP;
    for (int index = 0; index < NumParams(); ++index) {
        if (!HoldsReferences(index)) continue;
        const ParamDef& def = desc_->Param(index);
        const auto& elements = values_[size_t(index)];
        for (int tab = 0; tab < int(elements.size()); ++tab) {
            if (elements[size_t(tab)].ref != hTarget) continue;
            if (message == REFMSG_CHANGE) {
                lastParam_ = def.id;
                lastTab_ = tab;
            } else if (message == REFMSG_TARGET_DELETED && IsTable(def.type)) {
                TellTable(index, tab_ref_deleted, tab, 1);
            }
        }
    }
    return REF_SUCCEED;
}

namespace {

// The bytes a file holds for one value of a kind: a string's are its length and the
// text after it. Reference kinds keep their value in the reference slot, and kinds a
// block cannot hold have none.
size_t ValueBytes(ValueKind kind) {
    switch (kind) {
        case ValueKind::Float:
            return sizeof(float);
        case ValueKind::Int:
            return sizeof(int32_t);
        case ValueKind::Point3:
            return sizeof(Point3);
        case ValueKind::Point2:
            return sizeof(Point2);
        case ValueKind::Matrix:
            return chunkio::kMatrixBytes;
        case ValueKind::String:
            return sizeof(uint32_t);
        default:
            return 0;
    }
}

IOResult WriteValueOf(ISave* isave, ValueKind kind, const PB2Value& v) {
    switch (kind) {
        case ValueKind::Float:
            return isave->WriteValue(v.f);
        case ValueKind::Int:
            return isave->WriteValue(int32_t(v.i));
        case ValueKind::Point3:
            return isave->WriteValue(v.p);
        case ValueKind::Point2:
            return isave->WriteValue(v.p2);
        case ValueKind::Matrix:
            return chunkio::WriteMatrix(isave, v.m);
        case ValueKind::String:
            return isave->WriteWString(v.s);
        default:
            return IO_OK;
    }
}

IOResult ReadValueOf(ILoad* iload, ValueKind kind, PB2Value& v) {
    int32_t i = 0;
    switch (kind) {
        case ValueKind::Float:
            return iload->ReadValue(v.f);
        case ValueKind::Int:
            if (iload->ReadValue(i) != IO_OK) return IO_ERROR;
            v.i = i;
            return IO_OK;
        case ValueKind::Point3:
            return iload->ReadValue(v.p);
        case ValueKind::Point2:
            return iload->ReadValue(v.p2);
        case ValueKind::Matrix:
            return chunkio::ReadMatrix(iload, v.m);
        case ValueKind::String:
            return iload->ReadWString(v.s);
        default:
            return IO_OK;
    }
}

// The definition of block id among those of the registered class (superClass, cid).
ParamBlockDesc2* FindBlockDesc(SClass_ID superClass, Class_ID cid, BlockID id) {
    ClassDesc2* cd = ClassRegistry::Instance().Find(superClass, cid);
    for (int i = 0; cd && i < cd->NumParamBlockDescs(); ++i)
        if (cd->GetParamBlockDesc(i)->ID() == id) return cd->GetParamBlockDesc(i);
    return nullptr;
}

std::string ClassText(SClass_ID superClass, Class_ID cid) {
    char text[48];
    std::snprintf(text, sizeof(text), "(0x%x, 0x%x:0x%x)", unsigned(superClass),
                  unsigned(cid.PartA()), unsigned(cid.PartB()));
    return text;
}

}  // namespace

size_t IParamBlock2::ElementBytes(int index, bool withValues) const {
    const size_t value = withValues ? ValueBytes(KindOf(desc_->Param(index).type)) : 0;
    return value + (HoldsReferences(index) ? sizeof(uint8_t) : 0);
}

IOResult IParamBlock2::Save(ISave* isave) {
    // A definition that several classes share (a shape's interpolation block) is found
    // again through the class the block was read for, or else its owner's class.
    ClassDesc2* cd = definingClass_;
    if (!cd && owner_)
        cd = ClassRegistry::Instance().Find(owner_->SuperClassID(), owner_->ClassID());
    if (!desc_ || !cd) return IO_ERROR;  // nothing could find the definition again
    isave->BeginChunk(chunks::PB_HEADER);
    IOResult res = chunkio::WriteValues(isave, ID(), cd->SuperClassID());
    if (res == IO_OK) res = chunkio::WriteClassID(isave, cd->ClassID());
    if (res == IO_OK) res = isave->WriteValue(int32_t(isave->GetRefID(owner_)));
    isave->EndChunk();
    for (int index = 0; index < NumParams() && res == IO_OK; ++index) res = SaveParam(isave, index);
    return res;
}

// A transient parameter keeps only its count and which elements hold references, and
// only when it holds references: the reference slots of the block depend on them.
IOResult IParamBlock2::SaveParam(ISave* isave, int index) {
    const ParamDef& def = desc_->Param(index);
    const bool withValues = !(def.flags & P_TRANSIENT);
    if (ElementBytes(index, withValues) == 0) return IO_OK;
    const auto& elements = values_[size_t(index)];
    isave->BeginChunk(withValues ? chunks::PB_PARAM : chunks::PB_PARAM_SLOTS);
    IOResult res =
        chunkio::WriteValues(isave, def.id, int32_t(def.type), uint32_t(elements.size()));
    for (const Slot& slot : elements) {
        if (res == IO_OK && withValues) res = WriteValueOf(isave, KindOf(def.type), slot.v);
        if (res == IO_OK && HoldsReferences(index))
            res = isave->WriteValue(uint8_t(slot.ref != nullptr));
    }
    isave->EndChunk();
    return res;
}

IOResult IParamBlock2::Load(ILoad* iload) {
    const IOResult res = chunkio::ReadChunks(iload, [this, iload](uint16_t id) {
        switch (id) {
            case chunks::PB_HEADER:
                return LoadHeader(iload);
            case chunks::PB_PARAM:
                return LoadParam(iload, true);
            case chunks::PB_PARAM_SLOTS:
                return LoadParam(iload, false);
            default:
                return IO_OK;
        }
    });
    if (res == IO_OK && !desc_) return chunkio::LoadError(iload, "a parameter block has no header");
    return res;
}

IOResult IParamBlock2::LoadHeader(ILoad* iload) {
    BlockID id = 0;
    SClass_ID superClass = 0;
    Class_ID cid;
    int32_t owner = -1;
    if (chunkio::ReadValues(iload, id, superClass) != IO_OK ||
        chunkio::ReadClassID(iload, cid) != IO_OK || iload->ReadValue(owner) != IO_OK)
        return IO_ERROR;
    ParamBlockDesc2* desc = FindBlockDesc(superClass, cid, id);
    if (!desc)
        return chunkio::LoadError(iload, "no registered class " + ClassText(superClass, cid) +
                                             " defines parameter block " + std::to_string(id));
    Init(desc, ClassRegistry::Instance().Find(superClass, cid));
    // Accessors take the owner for an object of the block's class: none other owns it.
    iload->RecordBackpatch(owner, [this, superClass, cid](ReferenceTarget* target) {
        if (target && target->SuperClassID() == superClass && target->ClassID() == cid)
            owner_ = target;
    });
    return IO_OK;
}

IOResult IParamBlock2::LoadParam(ILoad* iload, bool withValues) {
    ParamID id = 0;
    int32_t type = 0;
    if (!desc_) return chunkio::LoadError(iload, "a parameter comes before its block's header");
    if (chunkio::ReadValues(iload, id, type) != IO_OK) return IO_ERROR;
    const int index = desc_->IDtoIndex(id);
    if (index < 0) return IO_OK;  // a parameter this definition no longer has
    const ParamType2 defined = desc_->Param(index).type;
    if (type != defined)
        return chunkio::LoadError(iload, ParamText(id) + " is saved as type " +
                                             std::to_string(type) + " but defined as type " +
                                             std::to_string(defined));
    return LoadElements(iload, index, withValues);
}

IOResult IParamBlock2::LoadElements(ILoad* iload, int index, bool withValues) {
    const ParamDef& def = desc_->Param(index);
    const size_t bytes = ElementBytes(index, withValues);
    if (bytes == 0) return IO_OK;  // nothing of it is kept
    uint32_t count = 0;
    if (iload->ReadCount(count, bytes) != IO_OK) return IO_ERROR;
    if (count != 1 && !IsTable(def.type))
        return chunkio::LoadError(iload, ParamText(def.id) + " is not a table but has " +
                                             std::to_string(count) + " values");
    std::vector<Slot> elements(count, Slot{def.def, nullptr});
    uint8_t hadReference = 0;  // the scene reader sets the reference itself
    for (Slot& slot : elements) {
        if (withValues && ReadValueOf(iload, KindOf(def.type), slot.v) != IO_OK) return IO_ERROR;
        if (HoldsReferences(index) && iload->ReadValue(hadReference) != IO_OK) return IO_ERROR;
    }
    values_[size_t(index)] = std::move(elements);
    return IO_OK;
}

std::string IParamBlock2::ParamText(ParamID id) const {
    return "parameter " + std::to_string(id) + " of block " + std::to_string(ID());
}

// After a clone, gives the cloned block the clone of the original's owner.
class IParamBlock2::OwnerPatch : public PostPatchProc {
public:
    OwnerPatch(IParamBlock2* clone, ReferenceMaker* owner)
        : pin_(clone), clone_(clone), owner_(owner) {}
    int Proc(RemapDir& remap) override {
        auto* owner = dynamic_cast<ReferenceTarget*>(owner_);
        clone_->owner_ = owner ? remap.FindMapping(owner) : nullptr;
        return 1;
    }

private:
    TargetPin pin_;
    IParamBlock2* clone_;
    ReferenceMaker* owner_;
};

ReferenceTarget* IParamBlock2::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this, &remap](IParamBlock2& to) {
        to.desc_ = desc_;
        to.definingClass_ = definingClass_;
        to.values_ = values_;
        for (auto& elements : to.values_)
            for (Slot& slot : elements) slot.ref = nullptr;  // CloneReferences sets them
        to.notify_ = notify_;
        if (owner_) remap.AddPostPatchProc(new OwnerPatch(&to, owner_), true);
    });
}

}  // namespace host
