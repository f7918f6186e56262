#pragma once

#include <cstdint>

#include "host/core/TimeValue.h"
#include "host/math/AngAxis.h"
#include "host/math/Point3.h"
#include "host/math/ScaleValue.h"
#include "host/object/Animatable.h"

namespace host {

inline constexpr uint32_t I_KEYCONTROL = 0x1100;

// Key flag bits.
inline constexpr uint32_t IKEY_SELECTED = 1u << 0;
// Bezier tangent types, kept in bits 7-9 (in) and 10-12 (out) of a key's flags.
enum BezierTangent : uint32_t {
    BEZKEY_SMOOTH = 0,
    BEZKEY_LINEAR = 1,
    BEZKEY_STEP = 2,
    BEZKEY_FAST = 3,
    BEZKEY_SLOW = 4,
    BEZKEY_USER = 5,  // custom: the key's tangents are used as they are
    BEZKEY_FLAT = 6,
};
inline constexpr uint32_t BEZKEY_INTYPESHIFT = 7;
inline constexpr uint32_t BEZKEY_OUTTYPESHIFT = 10;
inline constexpr uint32_t BEZKEY_TYPEMASK = 7;

inline BezierTangent GetInTanType(uint32_t flags) {
    return BezierTangent((flags >> BEZKEY_INTYPESHIFT) & BEZKEY_TYPEMASK);
}
inline BezierTangent GetOutTanType(uint32_t flags) {
    return BezierTangent((flags >> BEZKEY_OUTTYPESHIFT) & BEZKEY_TYPEMASK);
}
inline uint32_t SetInTanType(uint32_t flags, BezierTangent type) {
    return (flags & ~(BEZKEY_TYPEMASK << BEZKEY_INTYPESHIFT)) |
           (uint32_t(type) << BEZKEY_INTYPESHIFT);
}
inline uint32_t SetOutTanType(uint32_t flags, BezierTangent type) {
    return (flags & ~(BEZKEY_TYPEMASK << BEZKEY_OUTTYPESHIFT)) |
           (uint32_t(type) << BEZKEY_OUTTYPESHIFT);
}

struct IKey {
    TimeValue time = 0;
    uint32_t flags = 0;
};

// A bezier float key. Tangents are slopes in value per tick; the in tangent points
// backwards, so a smooth key has intan == -outtan. The lengths are fractions of the
// neighbouring segment's duration.
struct IBezFloatKey : IKey {
    float val = 0.0f;
    float intan = 0.0f;
    float outtan = 0.0f;
    float inLength = 1.0f / 3.0f;
    float outLength = 1.0f / 3.0f;
};

// A three-component bezier key: each component of the value has its own tangents and
// lengths, sharing the key's time and flags. Positions key a Point3; scales key a
// ScaleValue, whose factors are the components and whose axis turns from key to key.
template <class V>
struct IBezKey3 : IKey {
    V val;
    Point3 intan;
    Point3 outtan;
    Point3 inLength{1.0f / 3.0f, 1.0f / 3.0f, 1.0f / 3.0f};
    Point3 outLength{1.0f / 3.0f, 1.0f / 3.0f, 1.0f / 3.0f};
};
using IBezPoint3Key = IBezKey3<Point3>;
using IBezScaleKey = IBezKey3<ScaleValue>;

// A TCB key: tension, continuity and bias in -1..1 (0 each gives a Catmull-Rom curve),
// and the ease into the key (easeIn) and out of it (easeOut) as fractions of the
// neighbouring segment, 0..1. The value is a float, a Point3, a ScaleValue or, for
// rotations, the key's orientation as an axis and angle.
struct ITCBKey : IKey {
    float tens = 0.0f;
    float cont = 0.0f;
    float bias = 0.0f;
    float easeIn = 0.0f;
    float easeOut = 0.0f;
};
template <class V>
struct ITCBKeyOf : ITCBKey {
    V val{};
};
using ITCBFloatKey = ITCBKeyOf<float>;
using ITCBPoint3Key = ITCBKeyOf<Point3>;
using ITCBRotKey = ITCBKeyOf<AngAxis>;
using ITCBScaleKey = ITCBKeyOf<ScaleValue>;

// Direct access to a keyframed controller's keys (interface I_KEYCONTROL). SetKey and
// AppendKey keep the keys as given (call SortKeys after appending out of order).
class IKeyControl {
public:
    virtual ~IKeyControl() = default;
    virtual int GetNumKeys() = 0;
    virtual void SetNumKeys(int n) = 0;
    virtual void GetKey(int i, IKey* key) = 0;
    virtual void SetKey(int i, IKey* key) = 0;
    virtual int AppendKey(IKey* key) = 0;
    virtual void SortKeys() = 0;
};

// The key interface of a keyframed controller, or null.
inline IKeyControl* GetKeyControlInterface(Animatable* anim) {
    return anim ? static_cast<IKeyControl*>(anim->GetInterface(I_KEYCONTROL)) : nullptr;
}

}  // namespace host
