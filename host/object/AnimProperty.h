#pragma once

#include <cstdint>

namespace host {

inline constexpr uint32_t PROPID_JOINTPARAMS = 0x10001;

// Data an animatable keeps under a property id; the animatable owns it.
class AnimProperty {
public:
    virtual ~AnimProperty() = default;
};

}  // namespace host
