#pragma once

#include <vector>

#include "host/object/Animatable.h"
#include "host/object/ClassId.h"

namespace host {

class FPInterfaceDesc;
class ParamBlockDesc2;
class ReferenceMaker;

// The descriptor of a class: the scene model creates every instance through it, by
// (superclass, class id), and lists the public ones.
class ClassDesc2 {
public:
    virtual ~ClassDesc2() = default;
    // Whether the class shows in creation lists.
    virtual int IsPublic() = 0;
    // A new instance. With loading false the constructor also makes its parameter
    // blocks and defaults; with loading true the scene reader fills it afterwards.
    virtual Animatable* Create(bool loading = false) = 0;
    virtual const wchar_t* ClassName() = 0;
    virtual SClass_ID SuperClassID() = 0;
    virtual Class_ID ClassID() = 0;
    virtual const wchar_t* Category() = 0;
    // The untranslated name scripts use for the class.
    virtual const wchar_t* InternalName() { return ClassName(); }
    // The module the class comes from; the scene model's own classes have none.
    virtual void* HInstance() { return nullptr; }

    // The parameter blocks of the class, added by their definitions' constructors.
    void AddParamBlockDesc(ParamBlockDesc2* pbd) { blocks_.push_back(pbd); }
    int NumParamBlockDescs() const { return int(blocks_.size()); }
    ParamBlockDesc2* GetParamBlockDesc(int i) const { return blocks_[size_t(i)]; }
    // Makes the auto-constructed blocks for a new instance and sets each into the
    // owner's reference slot that its definition names.
    void MakeAutoParamBlocks(ReferenceMaker* owner);

    // The mix-in interfaces the class's objects publish: scripts find their functions and
    // properties on any object of the class. A second addition of one is ignored.
    void AddInterface(const FPInterfaceDesc* fpi) {
        for (const FPInterfaceDesc* known : interfaces_)
            if (known == fpi) return;
        interfaces_.push_back(fpi);
    }
    const std::vector<const FPInterfaceDesc*>& Interfaces() const { return interfaces_; }

private:
    std::vector<ParamBlockDesc2*> blocks_;
    std::vector<const FPInterfaceDesc*> interfaces_;
};

}  // namespace host
