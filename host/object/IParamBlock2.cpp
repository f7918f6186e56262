#include "host/object/IParamBlock2.h"

#include "host/object/Animate.h"
#include "host/object/ClassDesc2.h"
#include "host/object/Hold.h"

namespace host {

namespace {

// What a parameter without a controller shows as a sub-anim.
class PseudoAnimatable : public Animatable {
public:
    Class_ID ClassID() override { return Class_ID(0xEFFFFFFF, 0); }
    SClass_ID SuperClassID() override { return 0x900F; }
};

PseudoAnimatable thePseudoAnimatable;

bool IsReferenceType(ParamType2 t) {
    return t == TYPE_INODE || t == TYPE_REFTARG || t == TYPE_CONTROL;
}

}  // namespace

// Undo of one stored value; the accessor runs again on the value put back.
class IParamBlock2::ValueRestore : public RestoreObj {
public:
    ValueRestore(IParamBlock2* pb, int index, const PB2Value& before, const PB2Value& after)
        : pin_(pb), pb_(pb), index_(index), before_(before), after_(after) {}
    void Restore(bool) override { Put(before_); }
    void Redo() override { Put(after_); }
    WStr Description() override { return WStr(L"Parameter"); }

private:
    void Put(const PB2Value& value) {
        PB2Value v = value;
        const ParamDef& def = pb_->desc_->Param(index_);
        if (def.accessor && !IsLoading()) def.accessor->Set(v, pb_->owner_, def.id, 0, 0);
        pb_->values_[size_t(index_)].v = v;
        pb_->Changed(def.id, 0);
    }
    TargetPin pin_;
    IParamBlock2* pb_;
    int index_;
    PB2Value before_, after_;
};

void ClassDesc2::MakeAutoParamBlocks(ReferenceMaker* owner) {
    for (ParamBlockDesc2* pbd : blocks_)
        if (pbd->Flags() & P_AUTO_CONSTRUCT)
            owner->ReplaceReference(pbd->RefNo(), new IParamBlock2(pbd, owner));
}

IParamBlock2::IParamBlock2(ParamBlockDesc2* desc, ReferenceMaker* owner)
    : desc_(desc),
      owner_(owner),
      values_(size_t(desc->Count())),
      refOf_(size_t(desc->Count()), -1) {
    for (int i = 0; i < desc->Count(); ++i) {
        const ParamDef& def = desc->Param(i);
        values_[size_t(i)].v = def.def;
        if (IsReferenceType(def.type) || (def.flags & P_ANIMATABLE)) {
            refOf_[size_t(i)] = int(paramOfRef_.size());
            paramOfRef_.push_back(i);
        }
        if (def.flags & P_ANIMATABLE) subs_.push_back(i);
    }
}

int IParamBlock2::Find(ParamID id, Kind kind, int tab) const {
    const int index = desc_->IDtoIndex(id);
    if (index < 0 || tab != 0 || KindOf(desc_->Param(index).type) != kind) return -1;
    return index;
}

bool IParamBlock2::IsControlled(int index) const {
    return values_[size_t(index)].ref && !IsReferenceType(desc_->Param(index).type);
}

void IParamBlock2::RunGetAccessor(int index, TimeValue t, PB2Value& v, Interval& valid) {
    const ParamDef& def = desc_->Param(index);
    if (def.accessor && !IsLoading()) def.accessor->Get(v, owner_, def.id, 0, t, valid);
}

float IParamBlock2::GetFloat(ParamID id, TimeValue t, int tab) {
    const int index = Find(id, Kind::Float, tab);
    if (index < 0) return 0.0f;
    float f = values_[size_t(index)].v.f;
    Interval valid = FOREVER;
    if (IsControlled(index))
        static_cast<Control*>(values_[size_t(index)].ref)->GetValue(t, &f, valid);
    if (!desc_->Param(index).accessor) return f;
    PB2Value v;
    v.f = f;
    RunGetAccessor(index, t, v, valid);
    return v.f;
}

bool IParamBlock2::GetValue(ParamID id, TimeValue t, PB2Value& v, Interval& valid, int tab) {
    const int index = desc_->IDtoIndex(id);
    if (index < 0 || tab != 0) return false;
    const Slot& slot = values_[size_t(index)];
    v = slot.v;
    if (IsControlled(index) && KindOf(desc_->Param(index).type) == Kind::Float)
        static_cast<Control*>(slot.ref)->GetValue(t, &v.f, valid);
    if (IsReferenceType(desc_->Param(index).type)) v.r = slot.ref;
    RunGetAccessor(index, t, v, valid);
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
    Slot& slot = values_[size_t(index)];
    if (kind == Kind::Reference) {
        ReplaceReference(refOf_[size_t(index)], v.r);
    } else if (IsControlled(index) && kind == Kind::Float) {
        static_cast<Control*>(slot.ref)->SetValue(t, &v.f);
    } else if ((def.flags & P_ANIMATABLE) && kind == Kind::Float && Animating()) {
        Control* c = NewDefaultFloatController();
        if (!c) {
            Store(index, v);
        } else {
            // The first key of a track set away from the start keeps the value it had
            // there: a key at 0 with the old constant, then the new key.
            c->SetValue(0, &slot.v.f);
            ReplaceReference(refOf_[size_t(index)], c);
            c->SetValue(t, &v.f);
        }
    } else {
        Store(index, v);
    }
    Changed(id, tab);
    return true;
}

void IParamBlock2::Store(int index, const PB2Value& v) {
    Slot& slot = values_[size_t(index)];
    if (theHold.Holding()) theHold.Put(new ValueRestore(this, index, slot.v, v));
    slot.v = v;
}

void IParamBlock2::Changed(ParamID id, int tab) {
    lastParam_ = id;
    lastTab_ = tab;
    if (notify_) NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

Control* IParamBlock2::GetController(ParamID id, int tab) {
    const int index = desc_->IDtoIndex(id);
    return index >= 0 && tab == 0 && IsControlled(index)
               ? static_cast<Control*>(values_[size_t(index)].ref)
               : nullptr;
}

bool IParamBlock2::SetController(ParamID id, int tab, Control* c, bool preserveValue) {
    const int index = desc_->IDtoIndex(id);
    if (index < 0 || tab != 0 || !(desc_->Param(index).flags & P_ANIMATABLE)) return false;
    if (c && preserveValue && KindOf(desc_->Param(index).type) == Kind::Float) {
        float value = GetFloat(id, 0, tab);
        SuspendAnimate();
        c->SetValue(0, &value);
        ResumeAnimate();
    }
    ReplaceReference(refOf_[size_t(index)], c);
    Changed(id, tab);
    return true;
}

ParamID IParamBlock2::LastNotifyParamID(int& tab) const {
    tab = lastTab_;
    return lastParam_;
}

Animatable* IParamBlock2::SubAnim(int i) {
    ReferenceTarget* c = values_[size_t(subs_[size_t(i)])].ref;
    return c ? static_cast<Animatable*>(c) : &thePseudoAnimatable;
}

WStr IParamBlock2::SubAnimName(int i) {
    const wchar_t* name = desc_->Param(subs_[size_t(i)]).name;
    return WStr(name);
}

void IParamBlock2::SetReference(int i, ReferenceTarget* t) {
    const int index = paramOfRef_[size_t(i)];
    values_[size_t(index)].ref = t;
    // Undo and redo put references back without passing through Set: the accessor of
    // a node or target parameter sees them here.
    const ParamDef& def = desc_->Param(index);
    if (!theHold.RestoreOrRedoing() || !IsReferenceType(def.type) || !def.accessor || IsLoading())
        return;
    PB2Value v;
    v.r = t;
    def.accessor->Set(v, owner_, def.id, 0, 0);
}

RefResult IParamBlock2::NotifyRefChanged(const Interval&, ReferenceTarget* hTarget, PartID&,
                                         RefMessage message, bool) {
    if (!notify_) return REF_STOP;
    for (size_t k = 0; k < paramOfRef_.size(); ++k)
        if (values_[size_t(paramOfRef_[k])].ref == hTarget && message == REFMSG_CHANGE) {
            lastParam_ = desc_->Param(paramOfRef_[k]).id;
            lastTab_ = 0;
        }
    return REF_SUCCEED;
}

}  // namespace host
