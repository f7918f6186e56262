#include "host/object/ClassRegistry.h"

#include <algorithm>

namespace host {

ClassRegistry& ClassRegistry::Instance() {
    static ClassRegistry registry;
    return registry;
}

bool ClassRegistry::Register(ClassDesc2* desc) {
    if (!desc) return false;
    const auto [it, added] = byId_.try_emplace({desc->SuperClassID(), desc->ClassID()}, desc);
    if (added) ordered_.push_back(desc);
    return added;
}

void ClassRegistry::Unregister(ClassDesc2* desc) {
    const auto it = byId_.find({desc->SuperClassID(), desc->ClassID()});
    if (it == byId_.end() || it->second != desc) return;
    byId_.erase(it);
    std::erase(ordered_, desc);
}

ClassDesc2* ClassRegistry::Find(SClass_ID superClass, Class_ID id) const {
    const auto it = byId_.find({superClass, id});
    return it == byId_.end() ? nullptr : it->second;
}

Animatable* CreateInstance(SClass_ID superClass, Class_ID id) {
    ClassDesc2* desc = ClassRegistry::Instance().Find(superClass, id);
    return desc ? desc->Create(false) : nullptr;
}

}  // namespace host
