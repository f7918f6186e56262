#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace host::script {

// The kinds of script values. The first five live inside the Value itself; the others
// point at a reference-counted HeapObject.
enum class Tag : uint8_t {
    Undefined,
    Ok,
    Bool,
    Integer,
    Float,
    // Heap kinds from here on.
    String,
    Name,
    Point2,
    Point3,
    Array,
    Function,   // a script function (FunctionObject)
    Primitive,  // a built-in or a registered C++ function (PrimitiveObject)
    Cell,       // a local captured by an inner function (CellObject), never seen by scripts
    Node,
    Control,
    RefTarg,
    SubAnim,
    Interface,    // a published interface: a static one, or a mix-in of an object
    BoundMethod,  // an interface function bound to its interface, ready to call
    Class,        // a class constructor, by internal name
    Quat,
    Matrix3,
};

// Base of every heap value. Values count references to it; it goes when the last goes.
class HeapObject {
public:
    virtual ~HeapObject() = default;
    int refs = 0;
};

// A small tagged value: numbers and flags inline (no allocation), everything else a
// counted pointer. 16 bytes.
class Value {
public:
    Value() : tag_(Tag::Undefined) { u_.i = 0; }
    ~Value() { Release(); }
    Value(const Value& v) : tag_(v.tag_), u_(v.u_) { Retain(); }
    Value(Value&& v) noexcept : tag_(v.tag_), u_(v.u_) { v.tag_ = Tag::Undefined; }
    Value& operator=(const Value& v) {
        if (this != &v) {
            v.Retain();
            Release();
            tag_ = v.tag_;
            u_ = v.u_;
        }
        return *this;
    }
    Value& operator=(Value&& v) noexcept {
        if (this != &v) {
            Release();
            tag_ = v.tag_;
            u_ = v.u_;
            v.tag_ = Tag::Undefined;
        }
        return *this;
    }

    static Value Ok() { return Value(Tag::Ok); }
    static Value Bool(bool b) {
        Value v(Tag::Bool);
        v.u_.i = b ? 1 : 0;
        return v;
    }
    static Value Integer(int64_t i) {
        Value v(Tag::Integer);
        v.u_.i = i;
        return v;
    }
    static Value Float(double f) {
        Value v(Tag::Float);
        v.u_.f = f;
        return v;
    }
    // Takes a new reference to obj, which must be of the kind tag names.
    static Value Heap(Tag tag, HeapObject* obj) {
        Value v(tag);
        v.u_.obj = obj;
        ++obj->refs;
        return v;
    }

    Tag tag() const { return tag_; }
    bool IsUndefined() const { return tag_ == Tag::Undefined; }
    bool IsBool() const { return tag_ == Tag::Bool; }
    bool IsInteger() const { return tag_ == Tag::Integer; }
    bool IsFloat() const { return tag_ == Tag::Float; }
    bool IsNumber() const { return tag_ == Tag::Integer || tag_ == Tag::Float; }
    bool IsHeap() const { return tag_ >= Tag::String; }

    bool AsBool() const { return u_.i != 0; }
    int64_t AsInteger() const { return u_.i; }
    double AsFloat() const { return u_.f; }
    // Integer or float as a double.
    double AsNumber() const { return tag_ == Tag::Integer ? double(u_.i) : u_.f; }
    HeapObject* AsHeap() const { return u_.obj; }
    // The heap object as its class; the caller has checked the tag.
    template <typename T>
    T& As() const {
        return *static_cast<T*>(u_.obj);
    }

private:
    explicit Value(Tag tag) : tag_(tag) { u_.i = 0; }
    void Retain() const {
        if (IsHeap()) ++u_.obj->refs;
    }
    void Release() {
        if (IsHeap() && --u_.obj->refs == 0) delete u_.obj;
    }

    Tag tag_;
    union {
        int64_t i;
        double f;
        HeapObject* obj;
    } u_;
};

// Makes a heap value of kind tag from a new T.
template <typename T, typename... Args>
Value MakeHeap(Tag tag, Args&&... args) {
    return Value::Heap(tag, new T(std::forward<Args>(args)...));
}

}  // namespace host::script
