#pragma once

#include <cstdint>

namespace host {

inline constexpr uint32_t I_EULERCTRL = 0x1120;

// The Euler order of a rotation controller made of angle tracks (codes of Euler.h).
class IEulerControl {
public:
    virtual ~IEulerControl() = default;
    virtual int GetOrder() = 0;
    virtual void SetOrder(int order) = 0;
};

}  // namespace host
