#pragma once

#include "host/object/BaseObject.h"
#include "host/object/ClassRegistry.h"
#include "host/object/ModContext.h"
#include "host/object/Object.h"

namespace host {

// An object-space modifier: a step of a derived object's stack that changes the object
// coming up the pipeline. Its validity and channels tell the stack what it reads,
// what it writes and for how long its result holds.
//
// A disabled modifier stays in its stacks and is skipped. Enabling and disabling are
// undoable and tell the dependents (REFMSG_CHANGE), so the stacks evaluate again.
class Modifier : public BaseObject {
public:
    SClass_ID SuperClassID() override { return OSM_CLASS_ID; }
    // The name the stack shows: the class name unless the modifier has its own.
    virtual WStr GetName() { return GetClassName(); }

    // The channels of the object the modifier reads, and those it changes.
    virtual ChannelMask ChannelsUsed() = 0;
    virtual ChannelMask ChannelsChanged() = 0;
    // Changes os->obj, the stack's working object at t. A modifier may replace os->obj
    // by a new object; the stack then owns that object.
    virtual void ModifyObject(TimeValue t, ModContext& mc, ObjectState* os, INode* node) = 0;
    // The span around t over which the modifier's own parameters hold.
    virtual Interval LocalValidity(TimeValue) { return FOREVER; }
    // Something below the modifier in the stack of mc changed.
    virtual void NotifyInputChanged(const Interval&, PartID, RefMessage, ModContext*) {}

    bool IsEnabled() const { return enabled_; }
    void EnableMod() { SetEnabled(true); }
    void DisableMod() { SetEnabled(false); }

    // The enabled switch. A subclass with state of its own saves it after calling
    // Modifier::Save, and hands the chunks its Load does not know to LoadChunk.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;

protected:
    // Reads the open chunk when id is one of Modifier's; reads nothing for any other.
    IOResult LoadChunk(ILoad* iload, uint16_t id);
    // What a clone takes of from's modifier state: the switch.
    void CloneModifierState(const Modifier& from) { enabled_ = from.enabled_; }

private:
    class EnableRestore;
    void SetEnabled(bool on);

    bool enabled_ = true;
};

}  // namespace host
