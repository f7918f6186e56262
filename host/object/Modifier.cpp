#include "host/object/Modifier.h"

#include "host/object/Hold.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/ObjectChunkIds.h"

namespace host {

// The enabled state before and after one switch.
class Modifier::EnableRestore : public RestoreObj {
public:
    EnableRestore(Modifier* mod, bool before) : pin_(mod), mod_(mod), before_(before) {}
    void Restore(bool) override { mod_->SetEnabled(before_); }
    void Redo() override { mod_->SetEnabled(!before_); }
    WStr Description() override { return WStr(L"Modifier Enable"); }

private:
    TargetPin pin_;
    Modifier* mod_;
    bool before_;
};

void Modifier::SetEnabled(bool on) {
    if (enabled_ == on) return;
    if (theHold.Holding()) theHold.Put(new EnableRestore(this, enabled_));
    enabled_ = on;
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

IOResult Modifier::Save(ISave* isave) {
    isave->WriteChunk(chunks::MODIFIER_ENABLED, uint8_t(enabled_ ? 1 : 0));
    return IO_OK;
}

IOResult Modifier::Load(ILoad* iload) {
    return chunkio::ReadChunks(iload, [this, iload](uint16_t id) { return LoadChunk(iload, id); });
}

IOResult Modifier::LoadChunk(ILoad* iload, uint16_t id) {
    if (id != chunks::MODIFIER_ENABLED) return IO_OK;
    uint8_t on = 0;
    if (iload->ReadValue(on) != IO_OK) return IO_ERROR;
    enabled_ = on != 0;
    return IO_OK;
}

}  // namespace host
