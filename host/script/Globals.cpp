#include "host/script/Globals.h"

namespace host::script {

int Globals::Index(const std::wstring& name) {
    auto [it, inserted] = index_.try_emplace(name, int(slots_.size()));
    if (inserted) slots_.push_back(Slot{name, Value(), false, false});
    return it->second;
}

int Globals::Find(const std::wstring& name) const {
    auto it = index_.find(name);
    return it == index_.end() ? -1 : it->second;
}

void Globals::Define(const std::wstring& name, Value v) {
    Slot& slot = slots_[size_t(Index(name))];
    slot.value = std::move(v);
    slot.defined = true;
    slot.declared = true;
}

}  // namespace host::script
