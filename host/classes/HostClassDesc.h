#pragma once

#include "host/object/ClassDesc2.h"

namespace host {

// The descriptor of a host class that needs nothing beyond its names and ids: the
// table row of a built-in class. T is made with T(loading).
template <class T>
class HostClassDesc : public ClassDesc2 {
public:
    HostClassDesc(const wchar_t* name, const wchar_t* internalName, SClass_ID superClass,
                  Class_ID id, bool isPublic = true)
        : name_(name),
          internalName_(internalName),
          superClass_(superClass),
          id_(id),
          public_(isPublic) {}

    int IsPublic() override { return public_ ? 1 : 0; }
    Animatable* Create(bool loading) override { return new T(loading); }
    const wchar_t* ClassName() override { return name_; }
    SClass_ID SuperClassID() override { return superClass_; }
    Class_ID ClassID() override { return id_; }
    const wchar_t* Category() override { return L""; }
    const wchar_t* InternalName() override { return internalName_; }

private:
    const wchar_t* name_;
    const wchar_t* internalName_;
    SClass_ID superClass_;
    Class_ID id_;
    bool public_;
};

}  // namespace host
