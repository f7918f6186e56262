#pragma once

namespace host {

// What a modifier keeps for one of the stacks it sits in (a cache, a selection of its
// own), owned by that stack's ModContext. A modifier derives its data from this class.
class LocalModData {
public:
    virtual ~LocalModData() = default;
    // A copy for the stack of a cloned derived object; null (the default) when the
    // modifier rebuilds its data there.
    virtual LocalModData* Clone() { return nullptr; }
};

}  // namespace host
