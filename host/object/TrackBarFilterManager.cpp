#include "host/object/TrackBarFilterManager.h"

#include <algorithm>

#include "host/object/Control.h"
#include "host/object/INode.h"

namespace host {

TrackBarFilterManager& TrackBarFilterManager::Instance() {
    static TrackBarFilterManager manager;
    static const bool published = (RegisterCoreInterface(&manager), true);
    (void)published;
    return manager;
}

const FPInterfaceDesc* TrackBarFilterManager::GetDesc() {
    static const FPInterfaceDesc desc(TRACKBAR_FILTER_MANAGER_INTERFACE, L"TrackBarFilterMgr",
                                      FP_CORE, {});
    return &desc;
}

int TrackBarFilterManager::RegisterFilter(TrackBarFilterFunc filter, TrackBarAddFunc add,
                                          const WStr& name, Class_ID id, bool active,
                                          bool stopTraversal) {
    if (!filter || FindFilter(id) >= 0) return -1;
    filters_.push_back({filter, add, name, id, active, stopTraversal});
    return NumFilters() - 1;
}

void TrackBarFilterManager::UnRegisterFilter(int index) {
    if (index >= 0 && index < NumFilters()) filters_.erase(filters_.begin() + index);
}

int TrackBarFilterManager::FindFilter(Class_ID id) const {
    auto it = std::find_if(filters_.begin(), filters_.end(),
                           [id](const Filter& f) { return f.id == id; });
    return it == filters_.end() ? -1 : int(it - filters_.begin());
}

void TrackBarFilterManager::SetFilterActive(int index, bool active) {
    if (index >= 0 && index < NumFilters()) filters_[size_t(index)].active = active;
}

std::vector<Animatable*> TrackBarFilterManager::FilteredTracks(INode* node) const {
    std::vector<Animatable*> kept;
    if (Animatable* tm = node ? node->GetTMController() : nullptr)
        Visit(tm, node, 0, nullptr, node, kept);
    return kept;
}

void TrackBarFilterManager::Visit(Animatable* anim, Animatable* parent, int subNum,
                                  Animatable* grandParent, INode* node,
                                  std::vector<Animatable*>& kept) const {
    bool show = true, descend = true;
    for (const Filter& f : filters_) {
        if (!f.active || f.filter(anim, parent, subNum, grandParent, node)) continue;
        show = false;
        if (f.stopTraversal) descend = false;
    }
    if (show) kept.push_back(anim);
    if (!descend) return;
    for (int i = 0; i < anim->NumSubs(); ++i)
        if (Animatable* sub = anim->SubAnim(i)) Visit(sub, anim, i, parent, node, kept);
}

}  // namespace host
