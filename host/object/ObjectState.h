#pragma once

namespace host {

class Object;

// What a node's object evaluates to at a time: the object at the top of its pipeline
// (the base object itself, or the derived object's evaluated copy).
struct ObjectState {
    Object* obj = nullptr;
};

}  // namespace host
