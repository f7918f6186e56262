#pragma once

#include <string>
#include <vector>

#include "host/math/Point3.h"
#include "host/script/CycleCollector.h"
#include "host/script/Value.h"

namespace host::script {

// The text of a string or of a name (#foo). Names keep their spelling and compare
// without regard to case.
class StringObject : public HeapObject {
public:
    explicit StringObject(std::wstring t) : text(std::move(t)) {}
    std::wstring text;
};

// A point2 (x, y) or point3, in the host's float precision.
class PointObject : public HeapObject {
public:
    explicit PointObject(const Point3& p) : point(p) {}
    Point3 point;
};

// An array: shared by every value that holds it, so that a change through one is seen
// through all, and indexed from 1 in scripts.
class ArrayObject : public ContainerObject {
public:
    ArrayObject() = default;
    explicit ArrayObject(std::vector<Value> v) : items(std::move(v)) {}
    std::span<Value> Children() override { return items; }
    std::vector<Value> items;
};

// The box of a local that an inner function uses: the frame slot and the function's
// closure share it.
class CellObject : public ContainerObject {
public:
    std::span<Value> Children() override { return {&value, 1}; }
    Value value;
};

inline Value MakeString(std::wstring text) {
    return MakeHeap<StringObject>(Tag::String, std::move(text));
}
inline Value MakeName(std::wstring text) {
    return MakeHeap<StringObject>(Tag::Name, std::move(text));
}
inline Value MakePoint3(const Point3& p) {
    return MakeHeap<PointObject>(Tag::Point3, p);
}
inline Value MakePoint2(float x, float y) {
    return MakeHeap<PointObject>(Tag::Point2, Point3(x, y, 0.0f));
}
inline Value MakeArray(std::vector<Value> items = {}) {
    return MakeHeap<ArrayObject>(Tag::Array, std::move(items));
}
inline const std::wstring& TextOf(const Value& v) {
    return v.As<StringObject>().text;
}

}  // namespace host::script
