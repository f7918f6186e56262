#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/io/ChunkWriter.h"
#include "host/object/ClassId.h"

namespace host {

class Interface;
class ReferenceTarget;

// Writes a whole scene: time and range, the class directory, every object reachable from
// the root (nodes through their children, everything through references, weak ones
// included), each with its class, its own chunks and its reference slots by number, then
// the root's children, the selection and the layers with the nodes on them. The root is number 0;
// objects are numbered from 1 in the order met, so the same scene always gives the same bytes.
class SceneWriter : public ChunkWriter {
public:
    // The scene's bytes; empty, with what failed in error when given, when an object
    // cannot save itself.
    static std::vector<uint8_t> Write(Interface& ip, std::string* error = nullptr);

    int GetRefID(void* object) override;

private:
    explicit SceneWriter(Interface& ip) : ip_(ip) {}
    void Gather();
    void Meet(ReferenceTarget* target, std::vector<ReferenceTarget*>& pending);
    void WriteTime();
    void WriteClasses();
    void WriteLayers();
    void WriteObject(ReferenceTarget* object);
    void WriteNumbers(uint16_t id, const std::vector<ReferenceTarget*>& objects);
    uint32_t ClassIndex(ReferenceTarget* object);

    struct ClassKey {
        SClass_ID superClass;
        Class_ID id;
        bool operator==(const ClassKey&) const = default;
    };

    Interface& ip_;
    std::vector<ReferenceTarget*> objects_;
    std::unordered_map<const void*, int> numbers_;
    std::vector<ClassKey> classes_;
    std::string failure_;
};

}  // namespace host
