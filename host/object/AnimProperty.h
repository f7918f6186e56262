#pragma once

#include <cstdint>

namespace host {

inline constexpr uint32_t PROPID_JOINTPARAMS = 0x10001;

// Data an animatable keeps under a property id; the animatable owns it.
class AnimProperty {
public:
    virtual ~AnimProperty() = default;
    // A copy for a cloned animatable; null (the default) for data that stays with its
    // object.
    virtual AnimProperty* Clone() const { return nullptr; }
};

}  // namespace host
