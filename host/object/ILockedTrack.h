#pragma once

#include <cstdint>

#include "host/object/Animatable.h"

namespace host {

// The interface id under which a controller answers GetInterface with its locked-track
// part.
inline constexpr uint32_t I_LOCKED = 5008;

// The locked-track behaviour a controller inherits: a locked track ignores SetValue.
// The flag is the controller's to save (one byte) and to copy.
class ILockedTrackImp {
public:
    virtual ~ILockedTrackImp() = default;
    bool GetLocked() const { return locked_; }
    virtual void SetLocked(bool on) { locked_ = on; }

private:
    bool locked_ = false;
};

// The locked-track part of anim, or null when it has none.
inline ILockedTrackImp* GetLockedTrackInterface(Animatable* anim) {
    return anim ? static_cast<ILockedTrackImp*>(anim->GetInterface(I_LOCKED)) : nullptr;
}

}  // namespace host
