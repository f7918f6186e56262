#include "controllers/StaticFloat.h"

namespace zorvanta {

using namespace host;

StaticFloat::StaticFloat(bool) {}

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
