#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "host/core/Interval.h"
#include "host/core/WStr.h"
#include "host/object/AnimProperty.h"
#include "host/object/ClassId.h"
#include "host/object/ParamDimension.h"

namespace host {

class FPInterface;
class ICustAttribContainer;
class IObjParam;
class IParamBlock2;
class AnimEnum;
using BlockID = int16_t;

// BeginEditParams and EndEditParams flags: which command panel the rollups go to.
inline constexpr uint32_t BEGIN_EDIT_CREATE = 1u << 0;
inline constexpr uint32_t BEGIN_EDIT_MOTION = 1u << 1;

// The root of the object model: identity, sub-anims, interfaces and the flag word.
class Animatable {
public:
    Animatable() = default;
    Animatable(const Animatable&) = delete;
    Animatable& operator=(const Animatable&) = delete;
    // Deletes the custom attribute container with the object, outside undo.
    virtual ~Animatable();

    virtual Class_ID ClassID() { return Class_ID(); }
    virtual SClass_ID SuperClassID() { return 0; }
    virtual WStr GetClassName() { return WStr(); }
    // Destroys the object at once, outside the reference system's bookkeeping: for
    // objects nothing refers to and no undo record keeps.
    virtual void DeleteThis() { delete this; }

    virtual int NumSubs() { return 0; }
    virtual Animatable* SubAnim(int) { return nullptr; }
    virtual WStr SubAnimName(int) { return WStr(); }
    // How sub-anim i's values are shown.
    virtual ParamDimension* SubAnimDimension(int) { return defaultDim(); }
    // Whether sub-anim i may be given another controller, and doing so.
    virtual bool CanAssignController(int) { return false; }
    virtual bool AssignController(Animatable*, int) { return false; }
    // Calls proc for this object and, depth first, its sub-anims. Returns the last
    // answer: ANIM_ENUM_STOP skips a branch, ANIM_ENUM_ABORT ends the walk.
    int EnumAnimTree(AnimEnum* proc, Animatable* client, int subNum);
    // The union of the sub-anims' animated ranges; NEVER when nothing is animated.
    virtual Interval GetTimeRange();
    // Whether any sub-anim is animated.
    virtual bool IsAnimated();

    virtual int NumParamBlocks() { return 0; }
    virtual IParamBlock2* GetParamBlock(int) { return nullptr; }
    // The block with that id among GetParamBlock(0..NumParamBlocks-1), or null.
    virtual IParamBlock2* GetParamBlockByID(BlockID id);

    // The object's panels open and close here. Without a user interface attached (the
    // command line, tests) nothing opens; the studio's rollups override these.
    virtual void BeginEditParams(IObjParam*, uint32_t, Animatable*) {}
    virtual void EndEditParams(IObjParam*, uint32_t, Animatable*) {}

    // Data kept under a property id; SetProperty takes ownership and replaces what was
    // there (null removes it).
    AnimProperty* GetProperty(uint32_t id);
    void SetProperty(uint32_t id, AnimProperty* data);

    // An interface by its numeric id, or null.
    virtual void* GetInterface(uint32_t) { return nullptr; }
    // A published (mix-in) interface by its id, or null.
    virtual FPInterface* GetInterface(Interface_ID) { return nullptr; }

    // The custom attributes of this object; null until AllocCustAttribContainer.
    ICustAttribContainer* GetCustAttribContainer() { return custAttribs_; }
    void AllocCustAttribContainer();
    // A container read from a scene file becomes this object's, unless it has one.
    bool AdoptCustAttribContainer(ICustAttribContainer* container);

    void SetAFlag(uint32_t mask) { flags_ |= mask; }
    void ClearAFlag(uint32_t mask) { flags_ &= ~mask; }
    bool TestAFlag(uint32_t mask) const { return (flags_ & mask) != 0; }

protected:
    // Copies of from's properties that can copy themselves, replacing this object's
    // under the same ids.
    void CopyPropertiesFrom(const Animatable& from);

private:
    uint32_t flags_ = 0;
    ICustAttribContainer* custAttribs_ = nullptr;
    std::vector<std::pair<uint32_t, std::unique_ptr<AnimProperty>>> properties_;
};

// The walker of EnumAnimTree.
enum AnimEnumResult : int { ANIM_ENUM_PROCEED = 0, ANIM_ENUM_STOP = 1, ANIM_ENUM_ABORT = 2 };
class AnimEnum {
public:
    virtual ~AnimEnum() = default;
    virtual int proc(Animatable* anim, Animatable* client, int subNum) = 0;
};

}  // namespace host
