#include "host/math/RowMatrix.h"

namespace host {

RowMatrix::EulerTurns::EulerTurns(const float* angles) {
    for (int n = 0; n < 3; ++n) {
        turn[n] = angles[n] != 0.0f;
        c[n] = std::cos(angles[n]);
        s[n] = std::sin(angles[n]);
    }
}

}  // namespace host
