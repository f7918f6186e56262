// The rig object's extra chains: adding, removing, editing and ordering them, each an
// undoable step named "Rig System Change".
#include <algorithm>

#include "frame/StringTable.h"
#include "host/object/Hold.h"
#include "host/object/IParamBlock2.h"
#include "host/object/SnapshotRestore.h"
#include "rig/PointsRestore.h"
#include "rig/RigExtraPoints.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

// The extras as a whole before an edit, and after it.
class RigSystem::ExtrasRestore : public SnapshotRestore<RigSystem, std::vector<RigExtra>> {
public:
    explicit ExtrasRestore(RigSystem* rig)
        : SnapshotRestore(rig, &RigSystem::SaveExtras, &RigSystem::LoadExtras, L"ExtrasRestore") {}
};

namespace {

// Opens one undo step and closes it as "Rig System Change".
class ChangeStep {
public:
    ChangeStep() { theHold.Begin(); }
    ~ChangeStep() { theHold.Accept(WStr(GetString(IDS_RIG_SYSTEM_CHANGE))); }
    ChangeStep(const ChangeStep&) = delete;
    ChangeStep& operator=(const ChangeStep&) = delete;
};

}  // namespace

int RigSystem::AddExtra(const WStr& name, const WStr& parent, int side, int numControls,
                        int numBones, bool useBones) {
    if (numControls < 1 || numBones < 1) return -1;
    ChangeStep step;
    theHold.Put(new ExtrasRestore(this));
    RigExtra extra;
    extra.name = FreeExtraName(extras, name);
    extra.parent = !parent.isNull() ? parent : points.empty() ? WStr() : points.front().name;
    // A side outside 0 to 3 (none) follows the parent's prefix.
    extra.side = unsigned(side) > unsigned(kSideCenter) ? ExtraSideFromParent(extra.parent) : side;
    extra.numControls = numControls;
    extra.numBones = numBones;
    extra.flags = kExtraNew | (useBones ? kExtraUseBones : 0u);
    const WStr added = extra.name;
    extras.push_back(std::move(extra));
    SortExtras();
    RebuildPoints(false);
    for (size_t i = 0; i < extras.size(); ++i)
        if (extras[i].name == added) return int(i);
    return -1;
}

bool RigSystem::RemoveExtra(int index) {
    if (!ValidExtra(index)) return false;
    ChangeStep step;
    theHold.Put(new ExtrasRestore(this));
    extras.erase(extras.begin() + index);
    const int selected = ExtraOfComponent(selectedComponent);
    if (selected == index) WriteSelectedComponent(-1);
    if (selected > index) WriteSelectedComponent(selectedComponent - 1);
    RebuildPoints(false);
    return true;
}

template <class Change>
bool RigSystem::EditExtra(int index, Change change) {
    if (!ValidExtra(index)) return false;
    ChangeStep step;
    theHold.Put(new ExtrasRestore(this));
    change(extras[size_t(index)]);
    SortExtras();
    RebuildPoints(false);
    return true;
}

WStr RigSystem::GetExtraName(int index) {
    return ValidExtra(index) ? extras[size_t(index)].name : WStr();
}

bool RigSystem::SetExtraName(int index, const WStr& name) {
    if (!ValidExtra(index) || name.isNull()) return false;
    for (size_t i = 0; i < extras.size(); ++i)
        if (int(i) != index && CompareNames(extras[i].name, name) == 0) return false;
    return EditExtra(index, [&](RigExtra& extra) {
        const RigExtra before = extra;
        RigExtra after = before;
        after.name = name;
        // The extras hanging on the renamed one follow it.
        for (RigExtra& other : extras) {
            const WStr parent = RenamedParent(other.parent, before, after);
            if (&other != &extra && !parent.isNull()) other.parent = parent;
        }
        RenameExtraPoints(before, after);
        extra.name = name;
    });
}

void RigSystem::RenameExtraPoints(const RigExtra& before, const RigExtra& after) {
    if (theHold.Holding()) theHold.Put(new PointsRestore(this));
    for (int side : ExtraChainSides(before.side)) {
        for (int e = 0; e < before.numControls; ++e) {
            const int i = FindPoint(ExtraElementName(before, side, e).data());
            if (i >= 0) points[size_t(i)].name = ExtraElementName(after, side, e);
        }
    }
}

WStr RigSystem::GetExtraParent(int index) {
    return ValidExtra(index) ? extras[size_t(index)].parent : WStr();
}

bool RigSystem::SetExtraParent(int index, const WStr& parent) {
    return EditExtra(index, [&](RigExtra& extra) {
        extra.parent = parent;
        extra.flags |= kExtraReplace;
    });
}

int RigSystem::GetExtraSide(int index) {
    return ValidExtra(index) ? extras[size_t(index)].side : kSideNone;
}

bool RigSystem::SetExtraSide(int index, int side) {
    if (!ValidRigSide(side)) return false;
    return EditExtra(index, [&](RigExtra& extra) {
        extra.side = side;
        extra.flags |= kExtraReplace;
    });
}

int RigSystem::GetExtraNumControls(int index) {
    return ValidExtra(index) ? extras[size_t(index)].numControls : 0;
}

bool RigSystem::SetExtraNumControls(int index, int numControls) {
    if (numControls < 1) return false;
    return EditExtra(index, [&](RigExtra& extra) {
        extra.numControls = numControls;
        extra.flags |= kExtraReplace;
    });
}

int RigSystem::GetExtraNumBones(int index) {
    return ValidExtra(index) ? extras[size_t(index)].numBones : 0;
}

bool RigSystem::SetExtraNumBones(int index, int numBones) {
    if (numBones < 1) return false;
    return EditExtra(index, [&](RigExtra& extra) { extra.numBones = numBones; });
}

bool RigSystem::GetExtraUseBones(int index) {
    return ValidExtra(index) && extras[size_t(index)].UseBones();
}

bool RigSystem::SetExtraUseBones(int index, bool useBones) {
    return EditExtra(index, [&](RigExtra& extra) {
        extra.flags =
            useBones ? extra.flags | kExtraUseBones : extra.flags & ~uint32_t(kExtraUseBones);
    });
}

void RigSystem::LoadExtras(const std::vector<RigExtra>& state) {
    extras = state;
    PointsChanged();
}

void RigSystem::SortExtras() {
    const std::vector<int> order = SortedExtraOrder(extras, points);
    if (std::is_sorted(order.begin(), order.end())) return;
    theHold.Put(new ExtrasRestore(this));
    std::vector<RigExtra> sorted;
    for (int i : order) sorted.push_back(extras[size_t(i)]);
    extras = std::move(sorted);
    const int selected = ExtraOfComponent(selectedComponent);
    const auto moved = std::find(order.begin(), order.end(), selected);
    if (selected >= 0 && moved != order.end())
        WriteSelectedComponent(kExtraComponentBase + int(moved - order.begin()));
}

}  // namespace zorvanta
