#pragma once

#include "host/object/ClassRegistry.h"
#include "host/object/ReferenceTarget.h"

namespace host {

inline constexpr SClass_ID MATERIAL_CLASS_ID = 0xC00;

// A material a node can carry. The scene model renders nothing, so a material is only
// a named target that nodes share.
class Mtl : public ReferenceTarget {
public:
    SClass_ID SuperClassID() override { return MATERIAL_CLASS_ID; }
    const WStr& GetName() const { return name_; }
    void SetName(const WStr& name) { name_ = name; }

    // Save and Load keep the name.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The same class with the name; a subclass with state of its own extends it.
    ReferenceTarget* Clone(RemapDir& remap) override;

private:
    WStr name_;
};

}  // namespace host
