#pragma once

#include "host/object/ModContext.h"
#include "host/object/Modifier.h"
#include "host/object/Object.h"

namespace host {

// An object that is another object with a stack of modifiers on it. Modifier 0 is the
// top of the stack, the last one applied; the object below is a base object or the
// next derived object down. Adding, deleting and replacing are undoable.
class IDerivedObject : public Object {
public:
    virtual int NumModifiers() = 0;
    // Null for an index outside the stack, or for a place whose modifier was deleted
    // from elsewhere.
    virtual Modifier* GetModifier(int i) = 0;
    virtual ModContext* GetModContext(int i) = 0;
    // Inserts mod at index before of the stack (0: on top; NumModifiers(): at the
    // bottom), taking ownership of mc; without one, a context with the identity
    // transform and the box of the modifier's input is made. False for a null modifier,
    // an index outside 0..NumModifiers(), or a modifier that depends on this object.
    virtual bool AddModifier(Modifier* mod, ModContext* mc = nullptr, int before = 0) = 0;
    // Takes modifier i out of the stack; it goes once nothing else refers to it.
    virtual bool DeleteModifier(int i = 0) = 0;
    // The object below the stack.
    virtual Object* GetObjRef() = 0;
    // Puts obj below the stack; the old object goes once nothing refers to it.
    virtual RefResult ReferenceObject(Object* obj) = 0;
};

// A new derived object on obj (or on nothing yet).
IDerivedObject* CreateDerivedObject(Object* obj = nullptr);

}  // namespace host
