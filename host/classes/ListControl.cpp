#include "host/classes/ListControl.h"

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"
#include "host/object/RemapDir.h"

namespace host {

namespace {

enum ListFunction : FunctionID {
    kCount,
    kGetActive,
    kSetActive,
    kGetName,
    kSetName,
    kGetWeight,
    kSetWeight,
    kGetSubCtrl,
    kAppend,
    kDelete,
};

const FPArgDesc kIndexArg{L"index", TYPE_INDEX};

const FPInterfaceDesc kListDesc(
    LIST_CONTROLLER_INTERFACE, L"list", FP_MIXIN,
    {
        {kCount, L"count", TYPE_INT, {}},
        {kGetActive, L"getActive", TYPE_INDEX, {}},
        {kSetActive, L"setActive", TYPE_VOID, {kIndexArg}},
        {kGetName, L"getName", TYPE_STRING, {kIndexArg}},
        {kSetName, L"setName", TYPE_VOID, {kIndexArg, {L"name", TYPE_STRING}}},
        {kGetWeight, L"getWeight", TYPE_FLOAT, {kIndexArg}},
        {kSetWeight, L"setWeight", TYPE_VOID, {kIndexArg, {L"weight", TYPE_FLOAT}}},
        {kGetSubCtrl, L"getSubCtrl", TYPE_CONTROL, {kIndexArg}},
        {kAppend, L"append", TYPE_BOOL, {{L"controller", TYPE_CONTROL}, {L"name", TYPE_STRING}}},
        {kDelete, L"delete", TYPE_BOOL, {kIndexArg}},
    },
    {{L"count", kCount, FP_NO_FUNCTION, TYPE_INT},
     {L"active", kGetActive, kSetActive, TYPE_INDEX}});

template <typename T>
const T& Arg(const FPParams* p, size_t k) {
    return *p->params[k].Get<T>();
}

}  // namespace

// The active index before and after one change.
class ListControl::ActiveRestore : public RestoreObj {
public:
    ActiveRestore(ListControl* list, int before) : pin_(list), list_(list), before_(before) {}
    void Restore(bool isUndo) override {
        if (isUndo) after_ = list_->active_;
        list_->active_ = before_;
    }
    void Redo() override { list_->active_ = after_; }
    WStr Description() override { return WStr(L"List Active"); }

private:
    TargetPin pin_;
    ListControl* list_;
    int before_, after_ = -1;
};

void ListControl::PutActive(int i) {
    if (i == active_) return;
    if (theHold.Holding()) theHold.Put(new ActiveRestore(this, active_));
    active_ = i;
}

void ListControl::SetActive(int i) {
    if (entries_.Valid(i)) PutActive(i);
}

WStr ListControl::GetName(int i) {
    if (!entries_.Valid(i)) return WStr();
    if (!entries_.DataAt(i).name.isNull()) return entries_.DataAt(i).name;
    Control* c = GetSubCtrl(i);
    return c ? c->GetClassName() : WStr();
}

void ListControl::SetName(int i, const WStr& name) {
    if (entries_.Valid(i)) EditEntry(i, name, entries_.DataAt(i).weight);
}

float ListControl::GetWeight(int i) const {
    return entries_.Valid(i) ? entries_.DataAt(i).weight : 0.0f;
}

void ListControl::SetWeight(int i, float weight) {
    if (entries_.Valid(i)) EditEntry(i, entries_.DataAt(i).name, weight);
}

void ListControl::EditEntry(int i, const WStr& name, float weight) {
    entries_.SetData(i, Entry{name, weight});
}

int ListControl::Append(Control* c, const WStr& name) {
    if (!c || c->SuperClassID() != SuperClassID() || c->TestForLoop(FOREVER, this) != REF_SUCCEED)
        return -1;
    entries_.Append(c, Entry{name, 1.0f});
    if (active_ < 0) PutActive(0);
    return GetCount() - 1;
}

bool ListControl::Delete(int i) {
    if (!entries_.Valid(i)) return false;
    const int count = GetCount() - 1;
    const int active = i < active_ || active_ == count ? active_ - 1 : active_;
    entries_.Delete(i);
    PutActive(count == 0 ? -1 : active);
    return true;
}

int ListControl::ActiveForWrite() {
    if (active_ < 0) Append(NewEntryController());
    return active_;
}

void ListControl::CommitValue(TimeValue t) {
    if (Control* c = GetSubCtrl(active_)) c->CommitValue(t);
}

void ListControl::RestoreValue(TimeValue t) {
    if (Control* c = GetSubCtrl(active_)) c->RestoreValue(t);
}

WStr ListControl::SubAnimName(int i) {
    return i == GetCount() ? WStr(L"Available") : GetName(i);
}

bool ListControl::AssignController(Animatable* c, int i) {
    if (i == GetCount()) return Append(dynamic_cast<Control*>(c)) >= 0;
    auto* track = dynamic_cast<Control*>(c);
    if (!track || track->TestForLoop(FOREVER, this) != REF_SUCCEED) return false;
    return AssignTrack(track, i, SuperClassID());
}

IOResult ListControl::Save(ISave* isave) {
    isave->BeginChunk(chunks::CTRL_LIST_ENTRIES);
    WriteRecords(isave, entries_.AllData(), [isave](const Entry& entry) {
        isave->WriteWString(entry.name);
        isave->WriteValue(entry.weight);
    });
    isave->EndChunk();
    isave->WriteChunk(chunks::CTRL_LIST_ACTIVE, int32_t(active_));
    return IO_OK;
}

IOResult ListControl::Load(ILoad* iload) {
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        switch (id) {
            case chunks::CTRL_LIST_ENTRIES:
                return LoadEntries(iload);
            case chunks::CTRL_LIST_ACTIVE:
                return iload->ReadValue(active_);
            default:
                return IO_OK;
        }
    });
    if (result != IO_OK) return result;
    // Writes rely on an active entry whenever the list has one.
    if (GetCount() == 0 ? active_ != -1 : !entries_.Valid(active_))
        return LoadError(iload, "the active entry is not in the list");
    return IO_OK;
}

IOResult ListControl::LoadEntries(ILoad* iload) {
    // An entry is at least a name's length and a weight.
    std::vector<Entry> entries;
    if (ReadRecords(iload, sizeof(uint32_t) + sizeof(float), entries, [iload](Entry& entry) {
            return iload->ReadWString(entry.name) == IO_OK ? iload->ReadValue(entry.weight)
                                                           : IO_ERROR;
        }) != IO_OK)
        return IO_ERROR;
    entries_.SetLoadedData(std::move(entries));
    return IO_OK;
}

FPInterface* ListControl::GetInterface(Interface_ID id) {
    return id == LIST_CONTROLLER_INTERFACE ? this : CompoundControl::GetInterface(id);
}

const FPInterfaceDesc* ListControl::GetDesc() {
    return &kListDesc;
}

FPStatus ListControl::_dispatch_fn(FunctionID fid, TimeValue, FPValue& result, FPParams* p) {
    // Every function but count, getActive and append takes an entry index first.
    const bool indexed = fid != kCount && fid != kGetActive && fid != kAppend;
    const int i = indexed ? Arg<int>(p, 0) : -1;
    if (indexed && !entries_.Valid(i)) return FPS_FAIL;
    switch (fid) {
        case kCount:
            result.Load(TYPE_INT, GetCount());
            break;
        case kGetActive:
            result.Load(TYPE_INDEX, GetActive());
            break;
        case kSetActive:
            SetActive(i);
            break;
        case kGetName:
            result.Load(TYPE_STRING, GetName(i));
            break;
        case kSetName:
            SetName(i, Arg<WStr>(p, 1));
            break;
        case kGetWeight:
            result.Load(TYPE_FLOAT, GetWeight(i));
            break;
        case kSetWeight:
            SetWeight(i, Arg<float>(p, 1));
            break;
        case kGetSubCtrl:
            result.Load(TYPE_CONTROL, static_cast<Animatable*>(GetSubCtrl(i)));
            break;
        case kAppend:
            result.Load(TYPE_BOOL, int(Append(dynamic_cast<Control*>(Arg<Animatable*>(p, 0)),
                                              Arg<WStr>(p, 1)) >= 0));
            break;
        case kDelete:
            result.Load(TYPE_BOOL, int(Delete(i)));
            break;
        default:
            return FPS_NO_SUCH_FUNCTION;
    }
    return FPS_OK;
}

ReferenceTarget* ListControl::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](ListControl& to) {
        to.entries_.SetLoadedData(entries_.AllData());
        to.active_ = active_;
    });
}

}  // namespace host
