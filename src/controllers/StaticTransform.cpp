#include "controllers/StaticTransform.h"

#include "host/math/MatrixHelpers.h"

namespace zorvanta {

using namespace host;

namespace {

// value (parent space) after the packet's edit. Rotations and scales act about tmAxis
// (world space), or about the value's own origin with localOrigin.
Matrix3 Transformed(Matrix3 value, const SetXFormPacket& packet) {
    switch (packet.command) {
        case XFORM_MOVE: {
            Matrix3 toParent = packet.tmAxis * Inverse(packet.tmParent);
            toParent.NoTrans();
            value.Translate(packet.p * toParent);
            return value;
        }
        case XFORM_SET:
            return packet.tmAxis * Inverse(packet.tmParent);
        case XFORM_ROTATE:
        case XFORM_SCALE:
            break;
    }
    Matrix3 change;
    if (packet.command == XFORM_ROTATE)
        change = QuatMatrix(packet.q);
    else
        change.Scale(packet.p, false);
    Matrix3 axis = packet.tmAxis;
    value = value * packet.tmParent;
    if (packet.localOrigin) axis.SetTrans(value.GetTrans());
    return value * Inverse(axis) * change * axis * Inverse(packet.tmParent);
}

}  // namespace

StaticTransform::StaticTransform(bool) {}

Matrix3 StaticTransform::Initial() {
    return Matrix3();
}
Matrix3 StaticTransform::Zero() {
    Matrix3 m;
    m.SetIdentFlags(0);
    return m;
}
void StaticTransform::ApplyRelative(const Matrix3& v, void* val) {
    auto& m = *static_cast<Matrix3*>(val);
    m = v * m;
}
Matrix3 StaticTransform::AddRelative(const Matrix3& v, void* val) {
    return v * *static_cast<Matrix3*>(val);
}
void StaticTransform::Apply(Matrix3& a, const Matrix3& b) {
    a = b * a;
}
void StaticTransform::Multiply(Matrix3& v, float f) {
    v = BlendMatrix(Matrix3(), v, f);
}

void StaticTransform::SetValueLocalTime(TimeValue, void* val, int, GetSetMethod) {
    if (GetLocked()) return;
    HoldValue();
    const auto& packet = *static_cast<host::SetXFormPacket*>(val);
    Store(Transformed(value_, packet));
}

IOResult StaticTransform::ReadValue(ILoad* iload, Matrix3& m) {
    Point3 rows[4];
    uint32_t flags = 0;
    if (iload->ReadValue(rows) != IO_OK || iload->ReadValue(flags) != IO_OK) return IO_ERROR;
    m = Matrix3(rows[0], rows[1], rows[2], rows[3]);
    return IO_OK;
}

}  // namespace zorvanta
