#pragma once

#include <cmath>

#include "host/math/Euler.h"
#include "host/math/Matrix3.h"

namespace host {

// A Matrix3 held as four 16-byte rows while a run of local-space ("Pre") operations
// builds one transform, so that the rows stay in vector registers between them. Each
// operation does the float operations of its Matrix3 namesake, element for element and
// in the same order, and keeps the identity flags the same way: the stored result is
// bit for bit what the Matrix3 operations give. The spare fourth lane of a row is zero.
class RowMatrix {
public:
    explicit RowMatrix(const Matrix3& m)
        : rows_{Clean(MatrixRows::Load(m, 0)), Clean(MatrixRows::Load(m, 1)),
                Clean(MatrixRows::Load(m, 2)), Clean(MatrixRows::Load(m, 3))},
          flags_(m.GetIdentFlags()) {}

    // The rows are stored in order, so each row's spare lane is overwritten by the next
    // row, and row 3's by the flags.
    void Store(Matrix3& m) const {
        for (int i = 0; i < 4; ++i) MatrixRows::Store(m, i, rows_[i]);
        m.SetIdentFlags(flags_);
    }
    Matrix3 ToMatrix3() const {
        Matrix3 m;
        Store(m);
        return m;
    }

    // T(p) * M.
    void PreTranslate(const Point3& p) {
        rows_[3] += rows_[0] * p.x + rows_[1] * p.y + rows_[2] * p.z;
        if (p.x != 0.0f || p.y != 0.0f || p.z != 0.0f) flags_ &= ~Matrix3::POS_IDENT;
    }
    // The turns of three Euler angles: their sines and cosines, found before a
    // RowMatrix loads its rows so that the calls for them need not save the rows.
    struct EulerTurns {
        // Out of line, so that the calls are made before the rows are loaded rather than
        // moved into the turns that use them.
        explicit EulerTurns(const float* angles);
        bool turn[3];  // a zero angle leaves the rows as they are, bits and all
        float c[3], s[3];
    };
    // EulerToMatrix(angles, Order) * M, as PreRotateEuler turns a Matrix3: the last
    // step's turn reaches M first. The order is a constant, so that the rows each turn
    // mixes are known.
    template <int Order>
    void PreRotateEuler(const EulerTurns& e) {
        constexpr const int* axes = kEulerAxes[Order];
        if (e.turn[2]) Turn<axes[2]>(e.c[2], e.s[2]);
        if (e.turn[1]) Turn<axes[1]>(e.c[1], e.s[1]);
        if (e.turn[0]) Turn<axes[0]>(e.c[0], e.s[0]);
    }
    // S(s) * M, the translation left as it is.
    void PreScale(const Point3& s) {
        rows_[0] *= s.x;
        rows_[1] *= s.y;
        rows_[2] *= s.z;
        if (s.x != 1.0f || s.y != 1.0f || s.z != 1.0f) flags_ &= ~Matrix3::SCL_IDENT;
        if (s.x < 0.0f || s.y < 0.0f || s.z < 0.0f) flags_ &= ~Matrix3::ROT_IDENT;
    }

private:
    using Row = MatrixRows::Row;

    static Row Clean(Row r) {
        const MatrixRows::Bits keep = {~0u, ~0u, ~0u, 0u};
        return reinterpret_cast<Row>(reinterpret_cast<MatrixRows::Bits>(r) & keep);
    }
    // The rotation about Axis with cosine c and sine s: the two rows it mixes, mixed as
    // Matrix3's pre-rotation mixes them.
    template <int Axis>
    void Turn(float c, float s) {
        if constexpr (Axis == 0)
            Mix(rows_[1], rows_[2], c, s);
        else if constexpr (Axis == 1)
            Mix(rows_[2], rows_[0], c, s);
        else
            Mix(rows_[0], rows_[1], c, s);
        flags_ &= ~Matrix3::ROT_IDENT;
    }
    static void Mix(Row& a, Row& b, float c, float s) {
        const Row ra = a, rb = b;
        a = ra * c + rb * s;
        b = rb * c - ra * s;
    }

    Row rows_[4];
    uint32_t flags_;
};

}  // namespace host
