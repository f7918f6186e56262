#include "host/object/TrackViewNode.h"

#include "host/object/Hold.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/ObjectChunkIds.h"
#include "host/object/RemapDir.h"

namespace host {

// The list of items before and after one change. A change of the list never changes
// which tracks are referred to: adding appends an empty slot, removing drops one that
// its reference record emptied first. So the tracks come back with the list, and the
// references' own records link and unlink them.
class TrackViewNode::ItemsRestore : public RestoreObj {
public:
    explicit ItemsRestore(TrackViewNode* node) : pin_(node), node_(node), before_(node->items_) {}
    void Restore(bool isUndo) override {
        if (isUndo) after_ = node_->items_;
        Load(before_);
    }
    void Redo() override { Load(after_); }
    WStr Description() override { return WStr(L"Track View Items"); }

private:
    void Load(const std::vector<Item>& items) {
        node_->items_ = items;
        node_->NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    }

    TargetPin pin_;
    TrackViewNode* node_;
    std::vector<Item> before_, after_;
};

void TrackViewNode::Record() {
    if (theHold.Holding()) theHold.Put(new ItemsRestore(this));
}

int TrackViewNode::AddController(ReferenceTarget* track, const wchar_t* name, Class_ID cid) {
    Record();
    items_.push_back({WStr(name ? name : L""), cid, nullptr});
    const int i = NumItems() - 1;
    ReplaceReference(i, track);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    return i;
}

bool TrackViewNode::RemoveItem(int i) {
    if (!Valid(i)) return false;
    ReplaceReference(i, nullptr);
    Record();
    items_.erase(items_.begin() + i);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    return true;
}

int TrackViewNode::FindItem(const wchar_t* name, Class_ID cid) const {
    const WStr wanted(name ? name : L"");
    for (int i = 0; i < NumItems(); ++i) {
        const Item& item = items_[size_t(i)];
        if (item.name == wanted && (cid == Class_ID() || item.cid == cid)) return i;
    }
    return -1;
}

void TrackViewNode::Clear() {
    theHold.Suspend();
    for (int i = NumItems() - 1; i >= 0; --i) ReplaceReference(i, nullptr);
    items_.clear();
    theHold.Resume();
}

IOResult TrackViewNode::Save(ISave* isave) {
    isave->BeginChunk(chunks::TVNODE_ITEMS);
    IOResult res = isave->WriteValue(uint32_t(items_.size()));
    for (const Item& item : items_) {
        if (res == IO_OK) res = isave->WriteWString(item.name);
        if (res == IO_OK) res = chunkio::WriteClassID(isave, item.cid);
    }
    isave->EndChunk();
    return res;
}

IOResult TrackViewNode::Load(ILoad* iload) {
    return chunkio::ReadChunks(iload, [this, iload](uint16_t id) {
        return id == chunks::TVNODE_ITEMS ? LoadItems(iload) : IO_OK;
    });
}

IOResult TrackViewNode::LoadItems(ILoad* iload) {
    // An item takes at least its name's length and its tag.
    constexpr size_t kItemBytes = sizeof(uint32_t) + 2 * sizeof(uint32_t);
    uint32_t count = 0;
    if (iload->ReadCount(count, kItemBytes) != IO_OK) return IO_ERROR;
    std::vector<Item> items(count);
    for (Item& item : items)
        if (iload->ReadWString(item.name) != IO_OK ||
            chunkio::ReadClassID(iload, item.cid) != IO_OK)
            return IO_ERROR;
    items_ = std::move(items);
    return IO_OK;
}

ReferenceTarget* TrackViewNode::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](TrackViewNode& to) {
        for (const Item& item : items_) to.items_.push_back({item.name, item.cid, nullptr});
    });
}

}  // namespace host
