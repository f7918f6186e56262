#pragma once

#include <memory>
#include <variant>
#include <vector>

#include "host/core/BitArray.h"
#include "host/core/WStr.h"
#include "host/math/AngAxis.h"
#include "host/math/Matrix3.h"
#include "host/math/Point2.h"
#include "host/math/Quat.h"
#include "host/object/ParamType2.h"

namespace host {

class Animatable;

// A value of a published function's argument or result, tagged with its ParamType2.
// Numbers (int, float, bool, index, enum, time, angle, percent, world) keep their own
// C++ type; nodes, targets and controllers are non-owning Animatable pointers; tables
// are vectors; an out parameter points at the caller's FPValue.
class FPValue {
public:
    using Storage =
        std::variant<std::monostate, int, float, WStr, Point2, Point3, Quat, AngAxis, Matrix3,
                     BitArray, Animatable*, void*, std::vector<int>, std::vector<float>,
                     std::vector<Animatable*>, std::shared_ptr<FPValue>, FPValue*>;

    FPValue() = default;
    template <typename T>
    FPValue(ParamType2 t, T v) : type(t), storage(std::move(v)) {}

    // Back to an empty TYPE_VOID value.
    void Init() { *this = FPValue(); }
    void Free() { Init(); }
    template <typename T>
    void Load(ParamType2 t, T v) {
        type = t;
        storage = std::move(v);
    }
    // The value as T, or null when it holds something else.
    template <typename T>
    const T* Get() const {
        return std::get_if<T>(&storage);
    }
    template <typename T>
    T* Get() {
        return std::get_if<T>(&storage);
    }

    ParamType2 type = TYPE_VOID;
    Storage storage;
};

}  // namespace host
