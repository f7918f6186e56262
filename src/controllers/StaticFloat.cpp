#include "controllers/StaticFloat.h"

#include "frame/FrameIds.h"
#include "frame/StringTable.h"

namespace zorvanta {

using namespace host;

StaticFloat::StaticFloat(bool) {}

Class_ID StaticFloat::ClassID() {
    return STATIC_FLOAT_CLASS_ID;
}

SClass_ID StaticFloat::SuperClassID() {
    return CTRL_FLOAT_CLASS_ID;
}

WStr StaticFloat::GetClassName() {
    return WStr(GetString(IDS_STATIC_FLOAT_CLASS));
}

float StaticFloat::Initial() {
    return 0.0f;
}
float StaticFloat::Zero() {
    return 0.0f;
}
void StaticFloat::ApplyRelative(const float& v, void* val) {
    *static_cast<float*>(val) += v;
}
float StaticFloat::AddRelative(const float& v, void* val) {
    return *static_cast<float*>(val) + v;
}
void StaticFloat::Apply(float& a, const float& b) {
    a += b;
}
void StaticFloat::Multiply(float& v, float f) {
    v *= f;
}

}  // namespace zorvanta
