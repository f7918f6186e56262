#pragma once

#include "host/object/ClassRegistry.h"
#include "host/object/Object.h"

namespace host {

// An object made of splines. Shapes made for controls are not rendered and are not
// shown as meshes, so both switches start off.
class ShapeObject : public Object {
public:
    SClass_ID SuperClassID() override { return SHAPE_CLASS_ID; }
    bool IsShapeObject() override { return true; }

    bool GetRenderable() const { return renderable_; }
    void SetRenderable(bool on) { renderable_ = on; }
    bool GetDispRenderMesh() const { return displayAsMesh_; }
    void SetDispRenderMesh(bool on) { displayAsMesh_ = on; }

    // The two switches. A subclass with state of its own saves it after calling
    // ShapeObject::Save, and hands the chunks its Load does not know to LoadChunk.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;

protected:
    // Reads the open chunk when id is one of ShapeObject's; reads nothing for any other.
    IOResult LoadChunk(ILoad* iload, uint16_t id);

private:
    bool renderable_ = false;
    bool displayAsMesh_ = false;
};

}  // namespace host
