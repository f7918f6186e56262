#pragma once

#include "host/object/ClassDesc2.h"
#include "host/object/IParamBlock2.h"
#include "host/object/RemapDir.h"

namespace host {

// An object whose state is one parameter block, held at reference 0 and shown as its
// only sub-anim; Base is the object family (HelperObject, GeomObject). The block is
// made from the class's auto-constructed definition (unless loading: the scene reader
// sets the saved one), and its changes reach the object's dependents as changes of the
// object. The block is the whole state, so the object saves nothing of its own.
template <class Base>
class BlockObject : public Base {
public:
    int NumRefs() override { return 1; }
    ReferenceTarget* GetReference(int i) override { return i == 0 ? pblock_ : nullptr; }
    int NumSubs() override { return 1; }
    Animatable* SubAnim(int i) override { return i == 0 ? pblock_ : nullptr; }
    WStr SubAnimName(int i) override { return WStr(i == 0 ? L"Parameters" : L""); }
    int NumParamBlocks() override { return 1; }
    IParamBlock2* GetParamBlock(int i) override { return i == 0 ? pblock_ : nullptr; }

    // The same class with a clone of the block.
    ReferenceTarget* Clone(RemapDir& remap) override { return CloneObject(this, remap); }
    // The span over which every parameter holds its value at t.
    Interval ObjectValidity(TimeValue t) override {
        Interval valid = FOREVER;
        PB2Value v;
        for (int i = 0; pblock_ && i < pblock_->NumParams(); ++i)
            pblock_->GetValue(pblock_->IndexToID(i), t, v, valid);
        return valid;
    }

protected:
    BlockObject(ClassDesc2* desc, bool loading) {
        if (!loading) desc->MakeAutoParamBlocks(this);
    }
    void SetReference(int i, ReferenceTarget* target) override {
        if (i == 0) pblock_ = DefinedBlock(target);
    }
    float Float(ParamID id, TimeValue t) { return pblock_ ? pblock_->GetFloat(id, t) : 0.0f; }
    bool Bool(ParamID id, TimeValue t) { return pblock_ && pblock_->GetInt(id, t) != 0; }

    IParamBlock2* pblock_ = nullptr;
};

}  // namespace host
