#pragma once

namespace host {

// What a modifier keeps for one of the stacks it sits in (a cache, a selection of its
// own), owned by that stack's ModContext. A modifier derives its data from this class.
class LocalModData {
public:
    virtual ~LocalModData() = default;
};

}  // namespace host
