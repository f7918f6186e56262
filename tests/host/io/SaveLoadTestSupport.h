#pragma once

#include <gtest/gtest.h>

#include "host/io/ChunkReader.h"
#include "host/io/ChunkWriter.h"
#include "host/object/ClassRegistry.h"
#include "host/object/PBAccessor.h"
#include "host/object/RefSystem.h"
#include "host/object/ReferenceTarget.h"

namespace host::test {

// The load protocol on one object, without a scene file: Save into chunks, make a new
// instance of the class for loading, Load it, then give it the original's references (the
// same targets, shared), as the scene reader would. The copy must read back to the end of
// what was saved. Null (with a test failure) if any step fails.
template <class T>
T* SaveAndLoad(T* original) {
    ChunkWriter writer;
    if (original->Save(&writer) != IO_OK || !writer.Balanced()) {
        ADD_FAILURE() << "Save failed";
        return nullptr;
    }
    ClassDesc2* desc =
        ClassRegistry::Instance().Find(original->SuperClassID(), original->ClassID());
    if (!desc) {
        ADD_FAILURE() << "class not registered";
        return nullptr;
    }
    auto* copy = static_cast<ReferenceMaker*>(desc->Create(true));
    ChunkReader reader(writer.Bytes());
    SetLoading(true);
    const IOResult result = copy->Load(&reader);
    for (int i = 0; i < original->NumRefs(); ++i)
        RefSystem::Link(copy, i, original->GetReference(i));
    SetLoading(false);
    EXPECT_EQ(result, IO_OK) << reader.Error();
    EXPECT_FALSE(reader.Failed()) << reader.Error();
    EXPECT_EQ(reader.Position(), writer.Bytes().size()) << "Load did not read all Save wrote";
    return dynamic_cast<T*>(copy);
}

// Loading every prefix of what original saves fails or succeeds without reading past the
// bytes; the sanitizers watch. Objects made are deleted.
template <class T>
void LoadEveryPrefix(T* original) {
    ChunkWriter writer;
    ASSERT_EQ(original->Save(&writer), IO_OK);
    ClassDesc2* desc =
        ClassRegistry::Instance().Find(original->SuperClassID(), original->ClassID());
    ASSERT_NE(desc, nullptr);
    const std::vector<uint8_t>& bytes = writer.Bytes();
    for (size_t n = 0; n < bytes.size(); ++n) {
        const std::vector<uint8_t> cut(bytes.begin(), bytes.begin() + long(n));
        auto* copy = static_cast<ReferenceMaker*>(desc->Create(true));
        ChunkReader reader(cut);
        SetLoading(true);
        copy->Load(&reader);
        SetLoading(false);
        if (auto* target = dynamic_cast<ReferenceTarget*>(copy))
            target->DeleteMe();
        else
            delete copy;
    }
}

}  // namespace host::test
