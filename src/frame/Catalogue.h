#pragma once

#include "host/object/ClassDesc2.h"

namespace zorvanta {

// One row of the class catalogue: what the host knows of a class before it makes one.
struct CatalogueRow {
    const wchar_t* className;  // the implementation class
    bool isPublic;
    host::SClass_ID superClass;
    host::Class_ID classId;
    int nameId;  // the display name in the string table
    const wchar_t* category;
    const wchar_t* internalName;
    // Makes an instance; null for a class this library does not build yet.
    host::Animatable* (*create)(bool loading);
    // Defines the class's parameter blocks for its descriptor, once, before any
    // instance is made or read; null for a class without blocks.
    void (*describe)(host::ClassDesc2* desc) = nullptr;
};

// The descriptor of one catalogue row. Create answers null for a class not built yet,
// as the host's factory does for a class it cannot make.
class CatalogueClassDesc : public host::ClassDesc2 {
public:
    explicit CatalogueClassDesc(const CatalogueRow& row) : row_(row) {}
    // Gives the class its parameter block definitions; the descriptor must stay where
    // it is from then on, since the definitions point at it.
    void Describe() {
        if (row_.describe) row_.describe(this);
    }
    int IsPublic() override { return row_.isPublic ? 1 : 0; }
    host::Animatable* Create(bool loading = false) override;
    // From the string table's one buffer, which the next lookup overwrites.
    const wchar_t* ClassName() override;
    host::SClass_ID SuperClassID() override { return row_.superClass; }
    host::Class_ID ClassID() override { return row_.classId; }
    const wchar_t* Category() override { return row_.category; }
    const wchar_t* InternalName() override { return row_.internalName; }
    void* HInstance() override;
    const CatalogueRow& Row() const { return row_; }

private:
    const CatalogueRow& row_;
};

// The number of classes of the library, and the descriptor at index i in catalogue
// order (null past the end).
int CatalogueSize();
CatalogueClassDesc* CatalogueDesc(unsigned int i);

}  // namespace zorvanta
