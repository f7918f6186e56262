#pragma once

#include <map>
#include <utility>
#include <vector>

#include "host/object/ClassDesc2.h"

namespace host {

// Superclass ids of the host.
inline constexpr SClass_ID BASENODE_CLASS_ID = 0x1;
inline constexpr SClass_ID GEN_DERIVOB_CLASS_ID = 0x2;
inline constexpr SClass_ID GEOMOBJECT_CLASS_ID = 0x10;
inline constexpr SClass_ID SHAPE_CLASS_ID = 0x40;
inline constexpr SClass_ID HELPER_CLASS_ID = 0x50;
inline constexpr SClass_ID SYSTEM_CLASS_ID = 0x60;
inline constexpr SClass_ID REF_TARGET_CLASS_ID = 0x200;
inline constexpr SClass_ID OSM_CLASS_ID = 0x810;
inline constexpr SClass_ID CUST_ATTRIB_CLASS_ID = 0x1160;
inline constexpr SClass_ID CTRL_FLOAT_CLASS_ID = 0x9003;
inline constexpr SClass_ID CTRL_MATRIX3_CLASS_ID = 0x9008;
inline constexpr SClass_ID CTRL_POSITION_CLASS_ID = 0x900B;
inline constexpr SClass_ID CTRL_ROTATION_CLASS_ID = 0x900C;
inline constexpr SClass_ID CTRL_SCALE_CLASS_ID = 0x900D;
inline constexpr SClass_ID CTRL_POINT3_CLASS_ID = 0x900E;

// The class directory: every class the scene model can create, the host's own and
// those the toolkit registers, keyed by the pair (superclass, class id). Two classes
// of different superclasses may share one class id.
class ClassRegistry {
public:
    // The one directory of the running scene model.
    static ClassRegistry& Instance();

    // Adds a descriptor; false, and nothing changes, when its pair is taken already.
    bool Register(ClassDesc2* desc);
    void Unregister(ClassDesc2* desc);
    ClassDesc2* Find(SClass_ID superClass, Class_ID id) const;
    // Descriptors in the order they were registered.
    const std::vector<ClassDesc2*>& Descriptors() const { return ordered_; }

private:
    std::map<std::pair<SClass_ID, Class_ID>, ClassDesc2*> byId_;
    std::vector<ClassDesc2*> ordered_;
};

// A new instance of any registered class, or null for an unknown pair.
Animatable* CreateInstance(SClass_ID superClass, Class_ID id);

}  // namespace host
