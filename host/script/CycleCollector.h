#pragma once

#include <cstddef>
#include <span>

#include "host/script/Value.h"

namespace host::script {

// A heap value that holds other values (an array, a captured local's cell, a function
// with its cells), and so can sit in a loop of references that counting alone never
// frees: an array holding itself, a local function calling itself through its cell.
// Every container is on one list, which the collector walks.
class ContainerObject : public HeapObject {
public:
    ContainerObject();
    ~ContainerObject() override;
    ContainerObject(const ContainerObject&) = delete;
    ContainerObject& operator=(const ContainerObject&) = delete;

    // The values it holds.
    virtual std::span<Value> Children() = 0;

private:
    friend class CycleCollector;
    ContainerObject* prev_ = nullptr;
    ContainerObject* next_ = nullptr;
    int outside_ = 0;  // during a collection: references from outside the containers
    bool live_ = false;
};

// Frees the containers that only loops of containers refer to. A container is live
// when something besides containers refers to it (a variable, the value stack, C++
// code), or a live container does; the others are emptied, which breaks their loops,
// and go. Safe whenever every value is held by counted references, which is always
// true between statements; the interpreter runs it when an outermost run ends.
class CycleCollector {
public:
    // Returns how many containers went.
    static size_t Collect();
    static size_t Count() { return count_; }

private:
    friend class ContainerObject;
    static void Link(ContainerObject* c);
    static void Unlink(ContainerObject* c);
    static ContainerObject* ContainerOf(const Value& v);

    static inline ContainerObject* first_ = nullptr;
    static inline size_t count_ = 0;
};

}  // namespace host::script
