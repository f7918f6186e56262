#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/script/Value.h"

namespace host::script {

// The global variables, by slot: the parser turns every global name into its slot once,
// so a running script never looks a name up. Names are in lower case.
class Globals {
public:
    struct Slot {
        std::wstring name;
        Value value;
        bool defined = false;   // assigned, or a built-in
        bool declared = false;  // made global by the script text (assignment, `global`, fn)
    };

    // The slot of name, made (undefined) when new.
    int Index(const std::wstring& name);
    // -1 when no slot has the name.
    int Find(const std::wstring& name) const;
    Slot& operator[](int i) { return slots_[size_t(i)]; }
    const Slot& operator[](int i) const { return slots_[size_t(i)]; }
    void Define(const std::wstring& name, Value v);
    // Lets go of every value, keeping the slots (an interpreter that ends).
    void ReleaseValues() {
        for (Slot& slot : slots_) slot.value = Value();
    }

private:
    std::unordered_map<std::wstring, int> index_;
    std::vector<Slot> slots_;
};

}  // namespace host::script
