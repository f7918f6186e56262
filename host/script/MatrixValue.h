#pragma once

#include "host/math/Matrix3.h"
#include "host/script/ObjectValue.h"

namespace host::script {

// A transform: (matrix3 row1 row2 row3 row4), rows as properties, the fourth also as
// .translation and .pos (world units).
class MatrixValue : public ObjectValue {
public:
    explicit MatrixValue(const Matrix3& m) : matrix(m) {}
    static Value Make(const Matrix3& m) { return MakeHeap<MatrixValue>(Tag::Matrix3, m); }
    std::wstring Text() const override;
    bool GetProperty(Interpreter&, const std::wstring& name, Value& out) override;
    bool Equals(const ObjectValue& other) const override;
    Matrix3 matrix;
};

}  // namespace host::script
