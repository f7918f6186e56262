#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "host/io/ChunkReader.h"
#include "host/object/ClassId.h"

namespace host {

class ILayerManager;
class INode;
class Interface;
class ReferenceTarget;

// Reads a scene that SceneWriter wrote and, only when all of it is sound, puts it in the
// place of the present one. Objects are made for loading, read, and then given their
// references and weak references; nodes take their children; custom tracks, time and
// selection follow. Any fault (a damaged or hostile file, an unknown class, a number
// that names no object, references that loop) leaves the present scene as it was and
// says what was wrong.
class SceneReader {
public:
    static bool Read(std::span<const uint8_t> bytes, Interface& ip, std::string& error);

private:
    struct ClassKey {
        SClass_ID superClass;
        Class_ID id;
    };
    struct Slots {
        std::vector<int32_t> refs, indirect;
    };

    SceneReader(std::span<const uint8_t> bytes, Interface& ip);
    ~SceneReader();
    bool Parse();
    IOResult ReadTopChunk();
    IOResult ReadTime();
    IOResult ReadClasses();
    IOResult ReadObjects();
    IOResult ReadObject();
    IOResult ReadObjectChunk(size_t index);
    IOResult ReadObjectData(size_t index);
    IOResult ReadNumbers(std::vector<int32_t>& numbers);
    IOResult ReadLayers();
    IOResult ReadNodeLayers();
    IOResult MakeObject(size_t index, uint32_t classIndex);
    bool CheckNumbers();
    bool CheckNodeLayers() const;
    int32_t LoopingObject() const;
    void Link();
    void Install();
    void InstallTracks();
    void DropOrphans();
    void Discard();
    static void Delete(ReferenceTarget* object);
    ReferenceTarget* ObjectOf(int32_t number) const;
    INode* NodeOf(int32_t number) const;
    bool Fail(const std::string& what);

    ChunkReader reader_;
    Interface& ip_;
    int32_t time_[4] = {};  // time, range start and end, frame rate
    bool hasTime_ = false;
    std::vector<ClassKey> classes_;
    int32_t tracks_ = -1;
    std::vector<ReferenceTarget*> objects_;
    std::vector<Slots> slots_;
    std::vector<int32_t> root_, selection_;
    std::unique_ptr<ILayerManager> layers_;                // read apart, adopted on install
    std::vector<std::pair<int32_t, int32_t>> nodeLayers_;  // node number, layer index
    std::string error_;
};

}  // namespace host
