// Quaternion and matrix values.

#include "host/script/MatrixValue.h"
#include "host/script/QuatValue.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

std::wstring Number(float f) {
    return PrintText(Value::Float(f));
}

}  // namespace

std::wstring QuatValue::Text() const {
    return L"(quat " + Number(quat.x) + L" " + Number(quat.y) + L" " + Number(quat.z) + L" " +
           Number(quat.w) + L")";
}

bool QuatValue::GetProperty(Interpreter&, const std::wstring& name, Value& out) {
    const float* component = name == L"x"   ? &quat.x
                             : name == L"y" ? &quat.y
                             : name == L"z" ? &quat.z
                             : name == L"w" ? &quat.w
                                            : nullptr;
    if (!component) return false;
    out = Value::Float(*component);
    return true;
}

bool QuatValue::Equals(const ObjectValue& other) const {
    auto* q = dynamic_cast<const QuatValue*>(&other);
    return q && q->quat.x == quat.x && q->quat.y == quat.y && q->quat.z == quat.z &&
           q->quat.w == quat.w;
}

std::wstring MatrixValue::Text() const {
    std::wstring text = L"(matrix3";
    for (int i = 0; i < 4; ++i) text += L" " + PrintText(MakePoint3(matrix.GetRow(i)));
    return text + L")";
}

bool MatrixValue::GetProperty(Interpreter&, const std::wstring& name, Value& out) {
    static constexpr const wchar_t* kRows[] = {L"row1", L"row2", L"row3", L"row4"};
    for (int i = 0; i < 4; ++i) {
        if (name != kRows[i]) continue;
        out = MakePoint3(matrix.GetRow(i));
        return true;
    }
    if (name != L"translation" && name != L"pos") return false;
    out = MakePoint3(matrix.GetTrans());
    return true;
}

bool MatrixValue::Equals(const ObjectValue& other) const {
    auto* m = dynamic_cast<const MatrixValue*>(&other);
    if (!m) return false;
    for (int i = 0; i < 4; ++i)
        if (!(m->matrix.GetRow(i) == matrix.GetRow(i))) return false;
    return true;
}

}  // namespace host::script
