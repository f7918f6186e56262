#pragma once

#include <cstdint>

#include "host/core/WStr.h"
#include "host/object/ClassId.h"

namespace host {

class FPInterface;
class ICustAttribContainer;

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

    // An interface by its numeric id, or null.
    virtual void* GetInterface(uint32_t) { return nullptr; }
    // A published (mix-in) interface by its id, or null.
    virtual FPInterface* GetInterface(Interface_ID) { return nullptr; }

    // The custom attributes of this object; null until AllocCustAttribContainer.
    ICustAttribContainer* GetCustAttribContainer() { return custAttribs_; }
    void AllocCustAttribContainer();

    void SetAFlag(uint32_t mask) { flags_ |= mask; }
    void ClearAFlag(uint32_t mask) { flags_ &= ~mask; }
    bool TestAFlag(uint32_t mask) const { return (flags_ & mask) != 0; }

private:
    uint32_t flags_ = 0;
    ICustAttribContainer* custAttribs_ = nullptr;
};

}  // namespace host
