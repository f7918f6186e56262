#pragma once

#include <string>
#include <vector>

#include "host/object/Control.h"
#include "host/object/HostClassIds.h"
#include "host/object/ParamBlockDesc2.h"

namespace host {

inline constexpr SClass_ID PARAMETER_BLOCK2_CLASS_ID = 0x82;

// The parameters of one object, laid out by a ParamBlockDesc2. Each write runs the
// parameter's validator and accessor, records its undo step, tells the owner
// (REFMSG_CHANGE, with LastNotifyParamID naming the parameter) and, for an animatable
// parameter, goes to its controller: one is made on demand when the parameter is set
// while animating. Node and reference-target parameters are references of the block,
// so the owner hears its nodes. A table parameter holds any number of elements (a
// plain one exactly one), each with its own value, reference or controller.
//
// The scene reader makes a block by its class id, empty, and its Load finds the
// definition again by the block id and the class that defines it (which must be
// registered), then sizes every parameter as saved so that the references fit.
class IParamBlock2 : public ReferenceTarget {
public:
    IParamBlock2(ParamBlockDesc2* desc, ReferenceMaker* owner);
    // A block without a definition or parameters, for the scene reader to load.
    explicit IParamBlock2(bool loading);

    ParamBlockDesc2* GetDesc() { return desc_; }
    ReferenceMaker* GetOwner() { return owner_; }
    BlockID ID() const { return desc_ ? desc_->ID() : BlockID(-1); }
    Class_ID ClassID() override { return PARAM_BLOCK2_CLASS_ID; }
    SClass_ID SuperClassID() override { return PARAMETER_BLOCK2_CLASS_ID; }
    int NumParams() const { return int(values_.size()); }
    ParamID IndexToID(int i) const { return desc_->Param(i).id; }
    int IDtoIndex(ParamID id) const { return desc_->IDtoIndex(id); }
    const ParamDef* GetParamDef(ParamID id) const { return desc_->GetParamDef(id); }

    float GetFloat(ParamID id, TimeValue t = 0, int tab = 0);
    int GetInt(ParamID id, TimeValue t = 0, int tab = 0);
    Point3 GetPoint3(ParamID id, TimeValue t = 0, int tab = 0);
    Point3 GetColor(ParamID id, TimeValue t = 0, int tab = 0) { return GetPoint3(id, t, tab); }
    Point2 GetPoint2(ParamID id, TimeValue t = 0, int tab = 0);
    Matrix3 GetMatrix3(ParamID id, TimeValue t = 0, int tab = 0);
    WStr GetStr(ParamID id, TimeValue t = 0, int tab = 0);
    ReferenceTarget* GetReferenceTarget(ParamID id, TimeValue t = 0, int tab = 0);
    // The value with its validity: valid is narrowed by an animated parameter's span.
    bool GetValue(ParamID id, TimeValue t, PB2Value& v, Interval& valid, int tab = 0);

    // False, and nothing changes, for an unknown parameter or element, a refused value
    // or a value of another type than the parameter's.
    bool SetValue(ParamID id, TimeValue t, float v, int tab = 0);
    bool SetValue(ParamID id, TimeValue t, int v, int tab = 0);
    bool SetValue(ParamID id, TimeValue t, const Point3& v, int tab = 0);
    bool SetValue(ParamID id, TimeValue t, const Point2& v, int tab = 0);
    bool SetValue(ParamID id, TimeValue t, const Matrix3& v, int tab = 0);
    bool SetValue(ParamID id, TimeValue t, const wchar_t* v, int tab = 0);
    bool SetValue(ParamID id, TimeValue t, ReferenceTarget* v, int tab = 0);

    // Tables: the count (1 for a plain parameter, -1 for an unknown id), and edits that
    // are false, changing nothing, for a plain parameter or a range outside the table.
    int Count(ParamID id) const;
    // Inserts n elements with the parameter's default before index at.
    bool Insert(ParamID id, int at, int n);
    // Appends n elements with the default; the index of the first, or -1.
    int Append(ParamID id, int n);
    bool Delete(ParamID id, int start, int n);
    bool SetCount(ParamID id, int n);
    bool ZeroCount(ParamID id) { return SetCount(id, 0); }

    Control* GetController(ParamID id, int tab = 0);
    // Gives an animatable parameter a controller (shared with other blocks if it has
    // dependents already); with preserveValue the controller takes the present value.
    bool SetController(ParamID id, int tab, Control* c, bool preserveValue = true);
    ParamID LastNotifyParamID(int& tab) const;
    // While off, the block tells its owner nothing, not even its controllers' changes.
    void EnableNotifications(bool on) { notify_ = on; }

    // One reference per element of every node, target or animatable parameter, in
    // definition order.
    int NumRefs() override;
    ReferenceTarget* GetReference(int i) override;
    // The elements of animatable parameters, in definition order: the controller, or the
    // pseudo animatable (superclass 0x900F, class id (0xEFFFFFFF, 0)) when there is none.
    int NumSubs() override;
    Animatable* SubAnim(int i) override;
    WStr SubAnimName(int i) override;
    // By the parameter's type: angles show in degrees, percentages as percent.
    ParamDimension* SubAnimDimension(int i) override;
    // The parameter index of sub-anim i, or -1.
    int SubToParamIndex(int i) const;
    RefResult NotifyRefChanged(const Interval& changeInt, ReferenceTarget* hTarget, PartID& partID,
                               RefMessage message, bool propagate) override;

    // Every parameter but the transient ones: values, table counts, and which elements
    // hold references. Fails for a block whose definition belongs to no class.
    IOResult Save(ISave* isave) override;
    // Fails for a definition no registered class has, a parameter saved with another type
    // or a plain parameter saved with other than one value; skips parameters the
    // definition does not know.
    IOResult Load(ILoad* iload) override;
    // The same definition, values and table counts; controllers and target values
    // cloned through remap, nodes kept (or their clones, when cloned in the same
    // operation). The clone's owner is the clone of this block's owner, or none when the
    // owner is not cloned with it.
    ReferenceTarget* Clone(RemapDir& remap) override;

protected:
    void SetReference(int i, ReferenceTarget* t) override;

private:
    class ValueRestore;
    class TableRestore;
    class OwnerPatch;
    struct Slot {
        PB2Value v;
        ReferenceTarget* ref = nullptr;  // the controller, or the node or target value
    };
    using Kind = ValueKind;
    struct Element {
        int index = -1;  // parameter index
        int tab = 0;     // element of it
    };

    void Init(ParamBlockDesc2* desc, ClassDesc2* definingClass);
    IOResult SaveParam(ISave* isave, int index);
    IOResult LoadHeader(ILoad* iload);
    IOResult LoadParam(ILoad* iload, bool withValues);
    IOResult LoadElements(ILoad* iload, int index, bool withValues);
    // "parameter id of block n", for the reader's messages.
    std::string ParamText(ParamID id) const;
    // The fewest bytes a file holds for one element of parameter index.
    size_t ElementBytes(int index, bool withValues) const;
    // The index of parameter id if it has element tab (and takes values of kind).
    int FindElement(ParamID id, int tab) const;
    int Find(ParamID id, Kind kind, int tab) const;
    int FindTable(ParamID id) const;
    bool Set(ParamID id, TimeValue t, PB2Value v, Kind kind, int tab);
    void Store(int index, int tab, const PB2Value& v);
    void Changed(ParamID id, int tab);
    void RunGetAccessor(int index, int tab, TimeValue t, PB2Value& v, Interval& valid);
    void TellTable(int index, tab_changes change, int tab, int count);
    bool IsControlled(int index, int tab) const;
    bool HoldsReferences(int index) const;
    // Reference slot i, or sub-anim i, as a parameter element.
    Element RefElement(int i) const;
    Element SubElement(int i) const;
    int RefOf(int index, int tab) const;
    void InsertElements(int index, int at, const std::vector<PB2Value>& values);
    void EraseElements(int index, int at, int n);
    template <typename T>
    T Read(ParamID id, TimeValue t, int tab, Kind kind, T PB2Value::*field);
    template <typename T>
    bool Write(ParamID id, TimeValue t, int tab, Kind kind, T PB2Value::*field, const T& value);

    ParamBlockDesc2* desc_ = nullptr;
    // The class whose descriptor lists desc_: what a saved block names so that a reader
    // finds the definition again. A definition several classes share has no class of its
    // own: a block read from a file keeps the class it was read for.
    ClassDesc2* definingClass_ = nullptr;
    ReferenceMaker* owner_ = nullptr;
    std::vector<std::vector<Slot>> values_;  // per parameter: its elements
    ParamID lastParam_ = -1;
    int lastTab_ = 0;
    bool notify_ = true;
};

// target when it is a parameter block with a definition, else null. A block that a
// damaged file left without its header has none, and nothing could read it, so the slots
// meant for blocks take only defined ones.
inline IParamBlock2* DefinedBlock(ReferenceTarget* target) {
    auto* block = dynamic_cast<IParamBlock2*>(target);
    return block && block->GetDesc() ? block : nullptr;
}

}  // namespace host
