#pragma once

#include "host/classes/CompoundControl.h"
#include "host/classes/ReferenceList.h"
#include "host/object/FPInterface.h"

namespace host {

// The published interface of every list controller.
inline constexpr Interface_ID LIST_CONTROLLER_INTERFACE(0x444E7687, 0x722E6E36);

// A controller whose value combines a list of sub-controllers of its own type, in list
// order (see ValueList for how each type combines and weighs its entries). Each entry
// is a reference and a sub-anim, with a name and a weight. The last sub-anim,
// "Available", is an empty slot: assigning a controller to it appends an entry. The
// active entry is the one that writes (SetValue) reach; it is -1 only while the list is
// empty. Every change is undoable.
//
// The same operations are published as the mix-in interface LIST_CONTROLLER_INTERFACE,
// named "list": count, getActive, setActive, getName, setName, getWeight, setWeight,
// getSubCtrl, append and delete (indices 0-based here, 1-based in scripts), and the
// properties count and active.
class ListControl : public CompoundControl, public FPMixinInterface {
public:
    int GetCount() const { return entries_.Count(); }
    Control* GetSubCtrl(int i) const { return static_cast<Control*>(entries_.Target(i)); }
    int GetActive() const { return active_; }
    // Ignores indices outside the list.
    void SetActive(int i);
    // The entry's own name, or without one the class name of its controller.
    WStr GetName(int i);
    // An empty name gives the entry its controller's class name back.
    void SetName(int i, const WStr& name);
    // 0 for an index outside the list.
    float GetWeight(int i) const;
    void SetWeight(int i, float weight);
    // Appends c with weight 1; the first entry becomes the active one. Refused (-1) for
    // anything but a controller of the list's superclass, and for a controller that
    // depends on this list. Returns the new entry's index.
    int Append(Control* c, const WStr& name = WStr());
    // Removes entry i; the active index follows its entry, or the entry that takes the
    // place of a deleted active one.
    bool Delete(int i);

    int NumRefs() override { return GetCount(); }
    ReferenceTarget* GetReference(int i) override { return entries_.Target(i); }
    int NumSubs() override { return GetCount() + 1; }
    Animatable* SubAnim(int i) override { return GetSubCtrl(i); }
    WStr SubAnimName(int i) override;
    bool CanAssignController(int i) override { return i >= 0 && i <= GetCount(); }
    // Replaces entry i's controller, keeping its name and weight; i == GetCount()
    // appends.
    bool AssignController(Animatable* c, int i) override;

    // Tentative writes are the active entry's.
    void CommitValue(TimeValue t) override;
    void RestoreValue(TimeValue t) override;

    using CompoundControl::GetInterface;
    FPInterface* GetInterface(Interface_ID id) override;
    const FPInterfaceDesc* GetDesc() override;
    FPStatus _dispatch_fn(FunctionID fid, TimeValue t, FPValue& result, FPParams* p) override;

    // The entries' names and weights and the active index; the entries' controllers are
    // references. Loading sizes the list for them.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The entries' controllers cloned, with their names and weights and the active index.
    ReferenceTarget* Clone(RemapDir& remap) override;

protected:
    void SetReference(int i, ReferenceTarget* t) override {
        if (entries_.OwnsSlot(i)) entries_.SetSlot(i, ControlOf(t, SuperClassID()));
    }
    int NumTracks() override { return GetCount(); }
    Control* Track(int i) override { return GetSubCtrl(i); }
    // The index writes go to. An empty list first gets a default controller of its
    // type as entry 0; -1 when there is none to make.
    int ActiveForWrite();
    virtual Control* NewEntryController() = 0;

private:
    struct Entry {
        WStr name;  // empty: the controller's class name
        float weight = 1.0f;
    };
    class ActiveRestore;

    // Sets the active index, recorded when holding.
    void PutActive(int i);
    void EditEntry(int i, const WStr& name, float weight);
    IOResult LoadEntries(ILoad* iload);

    ReferenceList<Entry> entries_{this, 0};
    int active_ = -1;
};

}  // namespace host
