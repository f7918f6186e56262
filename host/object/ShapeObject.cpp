#include "host/object/ShapeObject.h"

#include "host/object/ObjectChunkIO.h"
#include "host/object/ObjectChunkIds.h"

namespace host {

IOResult ShapeObject::Save(ISave* isave) {
    isave->WriteChunk(chunks::SHAPE_RENDER_FLAGS,
                      uint8_t((renderable_ ? 1 : 0) | (displayAsMesh_ ? 2 : 0)));
    return IO_OK;
}

IOResult ShapeObject::Load(ILoad* iload) {
    return chunkio::ReadChunks(iload, [this, iload](uint16_t id) { return LoadChunk(iload, id); });
}

IOResult ShapeObject::LoadChunk(ILoad* iload, uint16_t id) {
    if (id != chunks::SHAPE_RENDER_FLAGS) return IO_OK;
    uint8_t flags = 0;
    if (iload->ReadValue(flags) != IO_OK) return IO_ERROR;
    renderable_ = (flags & 1) != 0;
    displayAsMesh_ = (flags & 2) != 0;
    return IO_OK;
}

}  // namespace host
