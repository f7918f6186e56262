#pragma once

#include "host/classes/KeyedScale.h"
#include "host/math/AngAxis.h"
#include "host/object/Control.h"
#include "host/object/HostClassIds.h"

namespace host {

// How the entries of a list controller of one value type weigh and combine: the one
// table per type that ValueList reads. Each type gives
// - Increment: what a relative write carries;
// - Weighted(v, w): an entry's contribution at weight w;
// - Compose(acc, v): acc followed by entry v, which acts in the frame acc made;
// - Share(before, after, wanted): the contribution that makes the whole list worth
//   wanted between the entries before and after it;
// - ApplyRelative(val, v): a relative read of v, as the type's controllers do it;
// - Incremented(total, inc): a value after a relative write of inc;
// - EntryIncrement(before, w, inc): turns a list increment into the increment of an
//   entry at weight w after `before`, or answers false when only an absolute write can
//   do it.
template <class Value>
struct ListTraits;

// Floats and positions add, each entry scaled by its weight.
template <class Value>
struct AdditiveListTraits {
    using Increment = Value;
    static Value Weighted(const Value& v, float w) { return v * w; }
    static Value Compose(const Value& acc, const Value& v) { return acc + v; }
    static Value Share(const Value& before, const Value& after, const Value& wanted) {
        return wanted - before - after;
    }
    static Value Incremented(const Value& total, const Value& inc) { return total + inc; }
    static bool EntryIncrement(const Value&, float w, Value& inc) {
        inc = inc * (1.0f / w);
        return true;
    }
};

template <>
struct ListTraits<float> : AdditiveListTraits<float> {
    static constexpr SClass_ID kSuperClass = CTRL_FLOAT_CLASS_ID;
    static constexpr Class_ID kClassID = FLOAT_LIST_CLASS_ID;
    static constexpr const wchar_t* kName = L"Float List";
    static constexpr const wchar_t* kInternalName = L"float_list";
    static Control* NewDefault() { return NewDefaultFloatController(); }
    static void ApplyRelative(void* val, float v) { *static_cast<float*>(val) += v; }
};

template <>
struct ListTraits<Point3> : AdditiveListTraits<Point3> {
    static constexpr SClass_ID kSuperClass = CTRL_POSITION_CLASS_ID;
    static constexpr Class_ID kClassID = POSITION_LIST_CLASS_ID;
    static constexpr const wchar_t* kName = L"Position List";
    static constexpr const wchar_t* kInternalName = L"position_list";
    static Control* NewDefault() { return NewDefaultPositionController(); }
    static void ApplyRelative(void* val, const Point3& p) {
        static_cast<Matrix3*>(val)->PreTranslate(p);
    }
};

// Rotations compose as a relative read applies them: entry k turns in the frame of the
// entries before it, so the list's value is q[n-1] * ... * q[1] * q[0] (products compose
// like matrices). A weight takes the rotation from the identity the shorter way, as far
// as the weight says (its rotation vector scaled).
template <>
struct ListTraits<Quat> {
    using Increment = AngAxis;
    static constexpr SClass_ID kSuperClass = CTRL_ROTATION_CLASS_ID;
    static constexpr Class_ID kClassID = ROTATION_LIST_CLASS_ID;
    static constexpr const wchar_t* kName = L"Rotation List";
    static constexpr const wchar_t* kInternalName = L"rotation_list";
    static Control* NewDefault() { return NewDefaultRotationController(); }
    static Quat Weighted(const Quat& q, float w) {
        return RotationVectorQuat(RotationVector(q) * w);
    }
    static Quat Compose(const Quat& acc, const Quat& q) { return q * acc; }
    static Quat Share(const Quat& before, const Quat& after, const Quat& wanted) {
        return Inverse(after) * wanted * Inverse(before);
    }
    static void ApplyRelative(void* val, const Quat& q) {
        PreRotateMatrix(*static_cast<Matrix3*>(val), q);
    }
    // A relative write turns the whole list after its present value, about an axis in
    // the list's parent space.
    static Quat Incremented(const Quat& total, const AngAxis& inc) { return total * Quat(inc); }
    // The same turn, for the entry, about the axis seen from the entries before it; the
    // angle stays, so that turns of more than half a revolution reach the entry whole.
    static bool EntryIncrement(const Quat& before, float w, AngAxis& inc);
};

// Scales compose as matrices do, one stretch after the other (exact when the entries
// share their scale axes; see ComposeScale). A weight raises the factors to its power.
template <>
struct ListTraits<ScaleValue> {
    using Increment = ScaleValue;
    static constexpr SClass_ID kSuperClass = CTRL_SCALE_CLASS_ID;
    static constexpr Class_ID kClassID = SCALE_LIST_CLASS_ID;
    static constexpr const wchar_t* kName = L"Scale List";
    static constexpr const wchar_t* kInternalName = L"scale_list";
    static Control* NewDefault() { return NewDefaultScaleController(); }
    static ScaleValue Weighted(const ScaleValue& s, float w) { return KeyScale(s, w); }
    static ScaleValue Compose(const ScaleValue& acc, const ScaleValue& s) {
        return ComposeScale(s, acc);
    }
    static ScaleValue Share(const ScaleValue& before, const ScaleValue& after,
                            const ScaleValue& wanted);
    static void ApplyRelative(void* val, const ScaleValue& s) {
        ApplyScaling(*static_cast<Matrix3*>(val), s);
    }
    static ScaleValue Incremented(const ScaleValue& total, const ScaleValue& inc) {
        return ComposeScale(total, inc);
    }
    static bool EntryIncrement(const ScaleValue&, float w, ScaleValue& inc) {
        inc = KeyScale(inc, 1.0f / w);
        return true;
    }
};

}  // namespace host
