#pragma once

#include <optional>
#include <vector>

#include "host/object/PBAccessor.h"
#include "host/object/ParamType2.h"

namespace host {

class ClassDesc2;
using BlockID = int16_t;

// Parameter flags.
enum ParamFlags : uint32_t {
    P_ANIMATABLE = 1,  // can take a controller, and does when set while animating
    P_TRANSIENT = 2,   // not saved
    P_NO_UI = 4,       // hidden from panels
};

// One parameter of a block definition. Ids, names, types and defaults are part of the
// scene format: they never change.
struct ParamDef {
    ParamID id;
    const wchar_t* name;  // the script name; null for an unnamed parameter
    ParamType2 type;
    uint32_t flags = 0;
    int labelId = 0;  // string resource of the label, 0 for none
    PB2Value def;
    std::optional<std::pair<float, float>> range = std::nullopt;  // the panel's range
    PBAccessor* accessor = nullptr;
    PBValidator* validator = nullptr;
    int tableSize = 0;  // a table's count in a new block
};

// Block flags.
enum BlockFlags : uint32_t {
    P_AUTO_CONSTRUCT = 1,  // made for each new instance by MakeAutoParamBlocks
};

// The static definition of a parameter block: one table of ParamDefs. Constructing
// it with a class descriptor adds it to that descriptor's blocks.
class ParamBlockDesc2 {
public:
    ParamBlockDesc2(BlockID id, const wchar_t* name, uint32_t flags, int refNo, ClassDesc2* cd,
                    std::vector<ParamDef> params);

    BlockID ID() const { return id_; }
    // The class whose descriptor holds this definition, or null.
    ClassDesc2* GetClassDesc() const { return cd_; }
    const wchar_t* Name() const { return name_; }
    uint32_t Flags() const { return flags_; }
    // The owner's reference slot that holds the block.
    int RefNo() const { return refNo_; }
    int Count() const { return int(params_.size()); }
    const ParamDef& Param(int index) const { return params_[size_t(index)]; }
    // The index of parameter id, or -1.
    int IDtoIndex(ParamID id) const {
        return id >= 0 && size_t(id) < index_.size() ? index_[size_t(id)] : -1;
    }
    const ParamDef* GetParamDef(ParamID id) const {
        const int i = IDtoIndex(id);
        return i < 0 ? nullptr : &params_[size_t(i)];
    }

private:
    BlockID id_;
    const wchar_t* name_;
    uint32_t flags_;
    int refNo_;
    ClassDesc2* cd_;
    std::vector<ParamDef> params_;
    std::vector<int> index_;  // by parameter id
};

}  // namespace host
