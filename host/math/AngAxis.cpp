#include "host/math/AngAxis.h"

#include <cmath>

#include "host/math/Quat.h"

namespace host {

AngAxis::AngAxis(const Quat& q) {
    Quat u = host::Normalize(q);
    if (u.w < 0.0f) u = -u;
    const float vlen = u.Vector().Length();
    if (vlen == 0.0f) return;
    axis = u.Vector() / vlen;
    angle = 2.0f * std::atan2(vlen, u.w);
}

}  // namespace host
