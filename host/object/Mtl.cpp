#include "host/object/Mtl.h"

#include "host/object/ObjectChunkIO.h"
#include "host/object/ObjectChunkIds.h"
#include "host/object/RemapDir.h"

namespace host {

IOResult Mtl::Save(ISave* isave) {
    isave->BeginChunk(chunks::MTL_NAME);
    const IOResult res = isave->WriteWString(name_);
    isave->EndChunk();
    return res;
}

IOResult Mtl::Load(ILoad* iload) {
    return chunkio::ReadChunks(iload, [this, iload](uint16_t id) {
        return id == chunks::MTL_NAME ? iload->ReadWString(name_) : IO_OK;
    });
}

ReferenceTarget* Mtl::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](Mtl& to) { to.name_ = name_; });
}

}  // namespace host
