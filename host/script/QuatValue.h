#pragma once

#include "host/math/Quat.h"
#include "host/script/ObjectValue.h"

namespace host::script {

// A rotation: (quat x y z w), with its components as properties.
class QuatValue : public ObjectValue {
public:
    explicit QuatValue(const Quat& q) : quat(q) {}
    static Value Make(const Quat& q) { return MakeHeap<QuatValue>(Tag::Quat, q); }
    std::wstring Text() const override;
    bool GetProperty(Interpreter&, const std::wstring& name, Value& out) override;
    bool Equals(const ObjectValue& other) const override;
    Quat quat;
};

}  // namespace host::script
