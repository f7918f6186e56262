#pragma once

#include <memory>
#include <vector>

#include "host/object/HostClassIds.h"
#include "host/object/IDerivedObject.h"

namespace host {

// The host's derived object: the object below at reference 0 and its modifiers at
// references 1..n, the top of the stack first. Sub-anims: the modifiers, top first,
// then the object below.
//
// Eval(t) evaluates the object below, takes a working copy of it (MakeShallowCopy) and
// applies the enabled modifiers to the copy from the bottom of the stack to the top.
// An object that cannot be copied goes up the stack itself, past every modifier that
// would change its geometry or topology. The result is cached over the intersection of
// the validities of the object below and of the applied modifiers, and dropped by a
// REFMSG_CHANGE from below or from a modifier, or by a change of the stack. Evaluating
// at a time outside the cache replaces the result; the direct dependents then hear a
// REFMSG_CHANGE (not passed on), so that none keeps the old one. The hold is suspended
// while the stack runs: evaluating is never an edit.
class DerivedObject : public IDerivedObject {
public:
    explicit DerivedObject(bool loading = false);
    ~DerivedObject() override;

    Class_ID ClassID() override { return DERIVED_OBJECT_CLASS_ID; }
    SClass_ID SuperClassID() override { return GEN_DERIVOB_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Derived Object"); }

    int NumModifiers() override { return int(mods_.size()); }
    Modifier* GetModifier(int i) override;
    ModContext* GetModContext(int i) override;
    bool AddModifier(Modifier* mod, ModContext* mc = nullptr, int before = 0) override;
    bool DeleteModifier(int i = 0) override;
    Object* GetObjRef() override { return obj_; }
    RefResult ReferenceObject(Object* obj) override;
    Object* FindBaseObject() override { return obj_ ? obj_->FindBaseObject() : nullptr; }

    ObjectState Eval(TimeValue t) override;
    Interval ObjectValidity(TimeValue t) override;
    // Conversions are those of the evaluated result; a converted object is always new
    // and belongs to the caller.
    bool CanConvertToType(Class_ID cid) override;
    Object* ConvertToType(TimeValue t, Class_ID cid) override;
    // The points of the result at the scene's current time.
    int NumPoints() override;
    Point3 GetPoint(int i) override;
    void GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) override;
    void GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm = nullptr, bool useSel = false) override;

    int NumRefs() override { return 1 + NumModifiers(); }
    ReferenceTarget* GetReference(int i) override;
    RefResult NotifyRefChanged(const Interval& changeInt, ReferenceTarget* hTarget, PartID& partID,
                               RefMessage message, bool propagate) override;
    int NumSubs() override { return NumModifiers() + 1; }
    Animatable* SubAnim(int i) override;
    WStr SubAnimName(int i) override;

    // The stack's places with their contexts (transform and box); the modifiers and the
    // object below are references, so Load makes their places, empty, for the scene
    // reader to fill. A modifier's local data is not saved: only the modifier could read
    // it, and it arrives after Load.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The object below and the modifiers cloned through remap (a modifier shared with
    // another stack stays shared among the clones), each with a copy of its context.
    ReferenceTarget* Clone(RemapDir& remap) override;

protected:
    void SetReference(int i, ReferenceTarget* target) override;

private:
    class StackRestore;
    struct Entry {
        Modifier* mod = nullptr;
        std::shared_ptr<ModContext> mc;  // shared with the undo records of the stack
    };
    // An object on its way up the stack, and whether the stack owns it.
    struct Working {
        Object* obj = nullptr;
        bool owned = false;
    };

    IOResult LoadModifiers(ILoad* iload);
    void InsertEntry(int at, std::shared_ptr<ModContext> mc);
    void EraseEntry(int at);
    // The object below with the modifiers from the bottom up to index top applied;
    // valid is narrowed by what was read.
    Working Apply(TimeValue t, int top, Interval& valid);
    Working Input(TimeValue t, int top, Interval& valid);
    void ApplyModifier(TimeValue t, int i, INode* node, Working& w, Interval& valid);
    ChannelMask ChannelsChangedFrom(int top);
    void Evaluate(TimeValue t);
    Object* Current();
    // A context for a modifier about to go in at index before.
    ModContext* DefaultContext(int before);
    // The node this object (or a derived object above it) belongs to, or null.
    INode* FindNode();
    // The stack index of target: NumModifiers() for the object below, -1 for neither.
    int IndexOf(ReferenceTarget* target);
    void TellModifiersAbove(int index, const Interval& changeInt, PartID partID,
                            RefMessage message);
    void DropCache();
    void ReleaseResult();

    Object* obj_ = nullptr;
    std::vector<Entry> mods_;
    // The cached result: the stack's own copy when ownsResult_, else the object below's.
    Object* result_ = nullptr;
    bool ownsResult_ = false;
    Interval resultValid_ = NEVER;
};

}  // namespace host
