#pragma once

#include "host/math/Matrix3.h"
#include "host/math/Point3.h"
#include "host/math/Quat.h"

namespace host {

// The parts of an affine matrix, as decomp_affine finds them.
//
// Composition order (row vectors, applied left to right):
//   M = Inverse(Matrix(u)) * ScaleMatrix(k) * Matrix(u)   the stretch along u's axes
//       * Matrix(q)                                       the essential rotation
//       * ScaleMatrix(f, f, f)                            the mirror, when f is -1
//       * TransMatrix(t)                                  the translation
struct AffineParts {
    Point3 t;        // translation
    Quat q;          // essential rotation
    Quat u;          // stretch rotation: row i of Matrix(u) is the axis of factor k[i]
    Point3 k;        // stretch factors, never negative
    float f = 1.0f;  // sign of the determinant: -1 for a mirroring matrix
};

// Polar decomposition of an affine matrix (Shoemake and Duff, "Matrix Animation and
// Polar Decomposition", Graphics Interface 1992; Shoemake, Graphics Gems IV). Of the
// stretch rotations that describe the same stretch, u is the one nearest the identity.
void decomp_affine(const Matrix3& m, AffineParts* parts);

}  // namespace host
