#include "host/object/DerivedObject.h"

#include <cassert>
#include <utility>

#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/NotifyRestore.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/ObjectChunkIds.h"
#include "host/object/RemapDir.h"

namespace host {

// A place of the stack that one step opened or closed: the place itself, with its
// context. The modifier in it is a reference and restores itself.
class DerivedObject::StackRestore : public RestoreObj {
public:
    StackRestore(DerivedObject* owner, int index, std::shared_ptr<ModContext> mc, bool inserted)
        : pin_(owner), owner_(owner), index_(index), mc_(std::move(mc)), inserted_(inserted) {}
    void Restore(bool) override { Apply(!inserted_); }
    void Redo() override { Apply(inserted_); }
    WStr Description() override { return WStr(L"Modifier Stack"); }

private:
    void Apply(bool insert) {
        if (insert) {
            owner_->InsertEntry(index_, mc_);
        } else {
            owner_->EraseEntry(index_);
        }
    }

    TargetPin pin_;
    DerivedObject* owner_;
    int index_;
    std::shared_ptr<ModContext> mc_;
    bool inserted_;
};

IDerivedObject* CreateDerivedObject(Object* obj) {
    auto* derived = new DerivedObject;
    if (obj) derived->ReferenceObject(obj);
    return derived;
}

DerivedObject::DerivedObject(bool) {}

DerivedObject::~DerivedObject() {
    ReleaseResult();
}

Modifier* DerivedObject::GetModifier(int i) {
    return i >= 0 && i < NumModifiers() ? mods_[size_t(i)].mod : nullptr;
}

ModContext* DerivedObject::GetModContext(int i) {
    return i >= 0 && i < NumModifiers() ? mods_[size_t(i)].mc.get() : nullptr;
}

bool DerivedObject::AddModifier(Modifier* mod, ModContext* mc, int before) {
    std::unique_ptr<ModContext> context(mc);
    if (!mod || before < 0 || before > NumModifiers()) return false;
    if (mod->TestForLoop(FOREVER, this) == REF_FAIL) return false;
    if (!context) context.reset(DefaultContext(before));
    std::shared_ptr<ModContext> shared(std::move(context));
    ChangeWithNotify(this, [&] {
        if (theHold.Holding()) theHold.Put(new StackRestore(this, before, shared, true));
        InsertEntry(before, shared);
        ReplaceReference(1 + before, mod);
    });
    NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    return true;
}

bool DerivedObject::DeleteModifier(int i) {
    if (i < 0 || i >= NumModifiers()) return false;
    std::shared_ptr<ModContext> mc = mods_[size_t(i)].mc;
    ChangeWithNotify(this, [&] {
        ReplaceReference(1 + i, nullptr);
        if (theHold.Holding()) theHold.Put(new StackRestore(this, i, mc, false));
        EraseEntry(i);
    });
    NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    return true;
}

RefResult DerivedObject::ReferenceObject(Object* obj) {
    if (obj == obj_) return REF_SUCCEED;
    if (obj && obj->TestForLoop(FOREVER, this) == REF_FAIL) return REF_FAIL;
    ChangeWithNotify(this, [&] { ReplaceReference(0, obj); });
    TellModifiersAbove(NumModifiers(), FOREVER, PART_ALL, REFMSG_CHANGE);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    return REF_SUCCEED;
}

IOResult DerivedObject::Save(ISave* isave) {
    isave->BeginChunk(chunks::DERIVOB_MODIFIERS);
    IOResult res = isave->WriteValue(uint32_t(mods_.size()));
    for (const Entry& entry : mods_) {
        if (res == IO_OK) res = chunkio::WriteMatrix(isave, entry.mc->tm);
        if (res == IO_OK) res = isave->WriteValue(entry.mc->box);
    }
    isave->EndChunk();
    return res;
}

IOResult DerivedObject::Load(ILoad* iload) {
    return chunkio::ReadChunks(iload, [this, iload](uint16_t id) {
        return id == chunks::DERIVOB_MODIFIERS ? LoadModifiers(iload) : IO_OK;
    });
}

IOResult DerivedObject::LoadModifiers(ILoad* iload) {
    uint32_t count = 0;
    if (iload->ReadCount(count, chunkio::kMatrixBytes + sizeof(Box3)) != IO_OK) return IO_ERROR;
    std::vector<Entry> mods(count);
    for (Entry& entry : mods) {
        entry.mc = std::make_shared<ModContext>();
        if (chunkio::ReadMatrix(iload, entry.mc->tm) != IO_OK ||
            iload->ReadValue(entry.mc->box) != IO_OK)
            return IO_ERROR;
    }
    mods_ = std::move(mods);
    DropCache();
    return IO_OK;
}

void DerivedObject::InsertEntry(int at, std::shared_ptr<ModContext> mc) {
    mods_.insert(mods_.begin() + at, Entry{nullptr, std::move(mc)});
    DropCache();
}

void DerivedObject::EraseEntry(int at) {
    assert(mods_[size_t(at)].mod == nullptr);  // the reference was cut first
    mods_.erase(mods_.begin() + at);
    DropCache();
}

ObjectState DerivedObject::Eval(TimeValue t) {
    if (!resultValid_.InInterval(t)) Evaluate(t);
    return {result_};
}

Interval DerivedObject::ObjectValidity(TimeValue t) {
    if (!resultValid_.InInterval(t)) Evaluate(t);
    return resultValid_;
}

void DerivedObject::Evaluate(TimeValue t) {
    const bool replacing = ownsResult_ && result_;
    ReleaseResult();
    Interval valid = FOREVER;
    const Working w = Apply(t, 0, valid);
    result_ = w.obj;
    ownsResult_ = w.owned;
    // A result holds at least at the time it was made for, so that the caller that
    // asks for it and its validity in turn gets the same object.
    resultValid_ = valid.InInterval(t) ? valid : Interval(t, t);
    // The old result is gone: whoever cached it (a node, a stack above) must drop it,
    // even when it went for another time and nothing changed. The message goes no
    // further than them.
    if (replacing) NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE, NOTIFY_ALL, false);
}

DerivedObject::Working DerivedObject::Apply(TimeValue t, int top, Interval& valid) {
    if (!obj_) return {};
    theHold.Suspend();
    Working w = Input(t, top, valid);
    INode* node = w.obj ? FindNode() : nullptr;
    for (int i = NumModifiers() - 1; i >= top && w.obj; --i) ApplyModifier(t, i, node, w, valid);
    theHold.Resume();
    return w;
}

DerivedObject::Working DerivedObject::Input(TimeValue t, int top, Interval& valid) {
    Object* input = obj_->Eval(t).obj;
    valid &= obj_->ObjectValidity(t);
    if (!input) return {};
    if (Object* copy = input->MakeShallowCopy(ChannelsChangedFrom(top))) return {copy, true};
    return {input, false};
}

void DerivedObject::ApplyModifier(TimeValue t, int i, INode* node, Working& w, Interval& valid) {
    Entry& entry = mods_[size_t(i)];
    Modifier* mod = entry.mod;
    if (!mod || !mod->IsEnabled()) return;
    // The object below itself must never change.
    if (!w.owned && (mod->ChannelsChanged() & (GEOM_CHANNEL | TOPO_CHANNEL)) != 0) return;
    ObjectState os{w.obj};
    mod->ModifyObject(t, *entry.mc, &os, node);
    valid &= mod->LocalValidity(t);
    if (os.obj == w.obj) return;
    if (w.owned) w.obj->DeleteThis();
    w = {os.obj, os.obj != nullptr};
}

ChannelMask DerivedObject::ChannelsChangedFrom(int top) {
    ChannelMask channels = 0;
    for (int i = top; i < NumModifiers(); ++i)
        if (Modifier* mod = mods_[size_t(i)].mod; mod && mod->IsEnabled())
            channels |= mod->ChannelsChanged();
    return channels;
}

ModContext* DerivedObject::DefaultContext(int before) {
    auto* mc = new ModContext;
    const TimeValue t = GetCOREInterface()->GetTime();
    Interval valid = FOREVER;
    const Working w = Apply(t, before, valid);
    if (w.obj) w.obj->GetDeformBBox(t, mc->box);
    if (w.owned) w.obj->DeleteThis();
    return mc;
}

INode* DerivedObject::FindNode() {
    return FindObjectNode(this);
}

Object* DerivedObject::Current() {
    return Eval(GetCOREInterface()->GetTime()).obj;
}

bool DerivedObject::CanConvertToType(Class_ID cid) {
    if (cid == ClassID()) return true;
    Object* result = Current();
    return result && result->CanConvertToType(cid);
}

Object* DerivedObject::ConvertToType(TimeValue t, Class_ID cid) {
    if (cid == ClassID()) return this;
    Object* result = Eval(t).obj;
    if (!result) return nullptr;
    Object* converted = result->ConvertToType(t, cid);
    // The result itself is the stack's (or the object below): hand out a copy of it.
    return converted == result ? result->MakeShallowCopy(ALL_CHANNELS) : converted;
}

int DerivedObject::NumPoints() {
    Object* result = Current();
    return result ? result->NumPoints() : 0;
}

Point3 DerivedObject::GetPoint(int i) {
    Object* result = Current();
    return result ? result->GetPoint(i) : Point3();
}

void DerivedObject::GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) {
    if (Object* result = Eval(t).obj) return result->GetLocalBoundBox(t, node, vpt, box);
    box.Init();
}

void DerivedObject::GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm, bool useSel) {
    if (Object* result = Eval(t).obj) return result->GetDeformBBox(t, box, tm, useSel);
    box.Init();
}

ReferenceTarget* DerivedObject::GetReference(int i) {
    if (i == 0) return obj_;
    return GetModifier(i - 1);
}

void DerivedObject::SetReference(int i, ReferenceTarget* target) {
    assert(i >= 0 && i < NumRefs());
    if (i == 0) {
        obj_ = dynamic_cast<Object*>(target);
    } else {
        mods_[size_t(i - 1)].mod = dynamic_cast<Modifier*>(target);
    }
    DropCache();
}

RefResult DerivedObject::NotifyRefChanged(const Interval& changeInt, ReferenceTarget* hTarget,
                                          PartID& partID, RefMessage message, bool) {
    if (message != REFMSG_CHANGE) return REF_SUCCEED;
    DropCache();
    TellModifiersAbove(IndexOf(hTarget), changeInt, partID, message);
    return REF_SUCCEED;
}

int DerivedObject::IndexOf(ReferenceTarget* target) {
    if (target && target == obj_) return NumModifiers();
    for (int i = 0; i < NumModifiers(); ++i)
        if (mods_[size_t(i)].mod == target) return i;
    return -1;
}

void DerivedObject::TellModifiersAbove(int index, const Interval& changeInt, PartID partID,
                                       RefMessage message) {
    for (int i = index - 1; i >= 0; --i)
        if (Modifier* mod = mods_[size_t(i)].mod)
            mod->NotifyInputChanged(changeInt, partID, message, mods_[size_t(i)].mc.get());
}

Animatable* DerivedObject::SubAnim(int i) {
    if (i == NumModifiers()) return obj_;
    return GetModifier(i);
}

WStr DerivedObject::SubAnimName(int i) {
    if (i == NumModifiers()) return obj_ ? obj_->GetClassName() : WStr();
    Modifier* mod = GetModifier(i);
    return mod ? mod->GetName() : WStr();
}

void DerivedObject::DropCache() {
    resultValid_ = NEVER;
    // A borrowed result may go with the object that lent it; an own one waits for the
    // next evaluation, so that a modifier working on it is never left without it.
    if (!ownsResult_) result_ = nullptr;
}

void DerivedObject::ReleaseResult() {
    if (ownsResult_ && result_) result_->DeleteThis();
    result_ = nullptr;
    ownsResult_ = false;
}

ReferenceTarget* DerivedObject::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](DerivedObject& to) {
        for (const Entry& entry : mods_) {
            auto mc = std::make_shared<ModContext>(entry.mc->tm, entry.mc->box);
            if (entry.mc->localData) mc->localData.reset(entry.mc->localData->Clone());
            to.mods_.push_back(Entry{nullptr, std::move(mc)});
        }
    });
}

}  // namespace host
