#pragma once

#include "host/core/TimeValue.h"

namespace host {

// Told when the scene's current time changes (registered with the core interface).
class TimeChangeCallback {
public:
    virtual ~TimeChangeCallback() = default;
    virtual void TimeChanged(TimeValue t) = 0;
};

}  // namespace host
