#pragma once

#include "host/object/BaseObject.h"
#include "host/object/ObjectState.h"

namespace host {

class Deformer;

// Pipeline channels: which parts of an object a modifier reads and changes.
using ChannelMask = uint32_t;
inline constexpr ChannelMask TOPO_CHANNEL = 1u << 0;
inline constexpr ChannelMask GEOM_CHANNEL = 1u << 1;
inline constexpr ChannelMask SELECT_CHANNEL = 1u << 3;
inline constexpr ChannelMask DISP_ATTRIB_CHANNEL = 1u << 5;
inline constexpr ChannelMask ALL_CHANNELS = 0xFFFFFFFF;

// An object that a node can carry, at the bottom of a pipeline: it evaluates to an
// ObjectState, may convert itself to another class, and, when it has points, lets
// modifiers move them.
class Object : public BaseObject {
public:
    // The object as it is at t: by default itself.
    virtual ObjectState Eval(TimeValue) { return {this}; }
    // The span over which Eval's result holds.
    virtual Interval ObjectValidity(TimeValue) { return FOREVER; }
    virtual Interval ChannelValidity(TimeValue t, int /*channel*/) { return ObjectValidity(t); }

    virtual bool CanConvertToType(Class_ID cid) { return cid == ClassID(); }
    // This object itself for its own class, a new object for a class it converts to,
    // or null.
    virtual Object* ConvertToType(TimeValue, Class_ID cid) {
        return cid == ClassID() ? this : nullptr;
    }

    virtual int NumPoints() { return 0; }
    virtual Point3 GetPoint(int) { return {}; }
    virtual void SetPoint(int, const Point3&) {}
    // After points were set: caches built on them are dropped.
    virtual void PointsWereChanged() {}
    // Moves every point through the deformer.
    virtual void Deform(Deformer* defProc, bool useSel = false);
    // A copy of the object's data for a pipeline to modify, owned by the caller; null
    // for an object that modifiers cannot change.
    virtual Object* MakeShallowCopy(ChannelMask) { return nullptr; }

    virtual bool IsShapeObject() { return false; }
    // The object at the bottom of a stack of derived objects: itself for a base object.
    virtual Object* FindBaseObject() { return this; }
    void GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm = nullptr, bool useSel = false) override;
};

}  // namespace host
