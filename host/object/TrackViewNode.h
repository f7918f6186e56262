#pragma once

#include <vector>

#include "host/object/ClassRegistry.h"
#include "host/object/HostClassIds.h"
#include "host/object/ReferenceTarget.h"

namespace host {

// A node of the track view's tree that holds named tracks: the scene root's custom
// tracks (scene-wide objects kept with the scene, found by name and class id tag).
// Each item owns its track through a reference; adding and removing are undoable.
class TrackViewNode : public ReferenceTarget {
public:
    // A tree's node; with loading, one the scene reader makes.
    explicit TrackViewNode(bool loading = false) : inTree_(!loading) {}

    Class_ID ClassID() override { return TRACK_VIEW_NODE_CLASS_ID; }
    SClass_ID SuperClassID() override { return REF_TARGET_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Track View Node"); }

    // Appends track under name with the tag cid; returns its index.
    int AddController(ReferenceTarget* track, const wchar_t* name, Class_ID cid);
    bool RemoveItem(int i);
    int NumItems() const { return int(items_.size()); }
    WStr GetName(int i) const { return Valid(i) ? items_[size_t(i)].name : WStr(); }
    Class_ID GetClassID(int i) const { return Valid(i) ? items_[size_t(i)].cid : Class_ID(); }
    ReferenceTarget* GetTrack(int i) { return Valid(i) ? items_[size_t(i)].track : nullptr; }
    // The first item with this name (and this tag, unless cid is null), or -1.
    int FindItem(const wchar_t* name, Class_ID cid = Class_ID()) const;
    // Removes every item, outside undo (a scene reset).
    void Clear();

    int NumRefs() override { return NumItems(); }
    ReferenceTarget* GetReference(int i) override { return GetTrack(i); }
    int NumSubs() override { return NumItems(); }
    Animatable* SubAnim(int i) override { return GetTrack(i); }
    WStr SubAnimName(int i) override { return GetName(i); }

    // The items' names and tags; the tracks are references, so Load makes the items
    // without them, for the scene reader to fill.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The items with their names and tags and clones of their tracks; the clone
    // belongs to what refers to it, as one the scene reader made.
    ReferenceTarget* Clone(RemapDir& remap) override;

protected:
    // A track view node belongs to the tree that holds it, whatever refers to it; one
    // the scene reader made belongs to what refers to it, as any target does.
    bool OwnedByDependents() const override { return !inTree_; }
    void SetReference(int i, ReferenceTarget* target) override {
        if (Valid(i)) items_[size_t(i)].track = target;
    }

private:
    class ItemsRestore;
    struct Item {
        WStr name;
        Class_ID cid;
        ReferenceTarget* track = nullptr;
    };
    bool Valid(int i) const { return i >= 0 && i < NumItems(); }
    // Records the names and tags of the items when holding.
    void Record();
    IOResult LoadItems(ILoad* iload);

    bool inTree_;
    std::vector<Item> items_;
};

}  // namespace host
