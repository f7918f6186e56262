#include "host/io/SceneReader.h"

#include <algorithm>
#include <cstring>

#include "host/io/SceneChunkIds.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Hold.h"
#include "host/object/ICustAttribContainer.h"
#include "host/object/IIndirectReferenceMaker.h"
#include "host/object/ILayerManager.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/Notifications.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/PBAccessor.h"
#include "host/object/RefSystem.h"
#include "host/object/TrackViewNode.h"

namespace host {

namespace {

constexpr size_t kHeaderBytes = sizeof(chunks::kSceneMagic) + sizeof(chunks::kSceneVersion);

std::string Hex(uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%x", value);
    return text;
}

// Loading restores values: no undo records, no accessors.
class LoadingScope {
public:
    LoadingScope() {
        theHold.Suspend();
        SetLoading(true);
    }
    ~LoadingScope() {
        SetLoading(false);
        theHold.Resume();
    }
};

}  // namespace

bool SceneReader::Read(std::span<const uint8_t> bytes, Interface& ip, std::string& error) {
    uint32_t version = 0;
    if (bytes.size() < kHeaderBytes ||
        std::memcmp(bytes.data(), chunks::kSceneMagic, sizeof(chunks::kSceneMagic)) != 0) {
        error = "not a scene file";
        return false;
    }
    std::memcpy(&version, bytes.data() + sizeof(chunks::kSceneMagic), sizeof(version));
    if (version != chunks::kSceneVersion) {
        error = "scene file version " + std::to_string(version) + " is not one this program reads";
        return false;
    }
    const LoadingScope loading;
    SceneReader reader(bytes.subspan(kHeaderBytes), ip);
    if (!reader.Parse() || !reader.CheckNumbers()) {
        error = reader.error_.empty() ? reader.reader_.Error() : reader.error_;
        reader.Discard();
        return false;
    }
    reader.Link();
    reader.Install();
    return true;
}

SceneReader::SceneReader(std::span<const uint8_t> bytes, Interface& ip) : reader_(bytes), ip_(ip) {}

SceneReader::~SceneReader() = default;

bool SceneReader::Parse() {
    if (chunkio::ReadChunks(&reader_, [this](uint16_t) { return ReadTopChunk(); }) != IO_OK)
        return false;
    if (!hasTime_) return Fail("the scene's time chunk is missing");
    return true;
}

IOResult SceneReader::ReadTopChunk() {
    switch (reader_.CurChunkID()) {
        case chunks::SCENE_TIME:
            return ReadTime();
        case chunks::SCENE_CLASSES:
            return ReadClasses();
        case chunks::SCENE_TRACKS:
            return reader_.ReadValue(tracks_);
        case chunks::SCENE_OBJECTS:
            return ReadObjects();
        case chunks::SCENE_ROOT:
            return ReadNumbers(root_);
        case chunks::SCENE_SELECTION:
            return ReadNumbers(selection_);
        case chunks::SCENE_LAYERS:
            return ReadLayers();
        case chunks::SCENE_NODE_LAYERS:
            return ReadNodeLayers();
        default:
            return IO_OK;
    }
}

IOResult SceneReader::ReadTime() {
    for (int32_t& value : time_)
        if (reader_.ReadValue(value) != IO_OK) return IO_ERROR;
    if (time_[3] <= 0 || TIME_TICKSPERSEC % time_[3] != 0 || time_[1] > time_[2]) {
        Fail("the scene's frame rate or animation range is not valid");
        return IO_ERROR;
    }
    hasTime_ = true;
    return IO_OK;
}

IOResult SceneReader::ReadClasses() {
    uint32_t count = 0;
    if (reader_.ReadCount(count, 3 * sizeof(uint32_t)) != IO_OK) return IO_ERROR;
    classes_.resize(count);
    for (ClassKey& key : classes_) {
        uint32_t a = 0, b = 0;
        if (reader_.ReadValue(key.superClass) != IO_OK || reader_.ReadValue(a) != IO_OK ||
            reader_.ReadValue(b) != IO_OK)
            return IO_ERROR;
        key.id = Class_ID(a, b);
    }
    return IO_OK;
}

IOResult SceneReader::ReadObjects() {
    return chunkio::ReadChunks(&reader_, [this](uint16_t id) {
        return id == chunks::SCENE_OBJECT ? ReadObject() : IO_OK;
    });
}

IOResult SceneReader::ReadObject() {
    const size_t index = objects_.size();
    objects_.push_back(nullptr);
    slots_.emplace_back();
    if (chunkio::ReadChunks(&reader_, [this, index](uint16_t) { return ReadObjectChunk(index); }) !=
        IO_OK)
        return IO_ERROR;
    if (!objects_[index]) {
        Fail("object " + std::to_string(index + 1) + " has no class");
        return IO_ERROR;
    }
    return IO_OK;
}

IOResult SceneReader::ReadObjectChunk(size_t index) {
    const uint16_t id = reader_.CurChunkID();
    if (id == chunks::OBJECT_CLASS) {
        uint32_t classIndex = 0;
        if (reader_.ReadValue(classIndex) != IO_OK) return IO_ERROR;
        return MakeObject(index, classIndex);
    }
    if (id != chunks::OBJECT_DATA && id != chunks::OBJECT_REFS && id != chunks::OBJECT_INDIRECT)
        return IO_OK;
    if (!objects_[index]) {
        Fail("object " + std::to_string(index + 1) + " has data before its class");
        return IO_ERROR;
    }
    if (id == chunks::OBJECT_DATA) return ReadObjectData(index);
    return ReadNumbers(id == chunks::OBJECT_REFS ? slots_[index].refs : slots_[index].indirect);
}

IOResult SceneReader::ReadObjectData(size_t index) {
    ReferenceTarget* object = objects_[index];
    const int depth = reader_.Depth();
    reader_.SetFloor(depth);
    const IOResult res = object->Load(&reader_);
    while (!reader_.Failed() && reader_.Depth() > depth) reader_.CloseChunk();
    reader_.SetFloor(0);
    if (res == IO_OK && !reader_.Failed()) return IO_OK;
    Fail("the data of object " + std::to_string(index + 1) + " (" +
         object->GetClassName().ToUtf8() + ") is damaged: " +
         (reader_.Failed() ? reader_.Error() : std::string("its class refused it")));
    return IO_ERROR;
}

IOResult SceneReader::ReadNumbers(std::vector<int32_t>& numbers) {
    uint32_t count = 0;
    if (reader_.ReadCount(count, sizeof(int32_t)) != IO_OK) return IO_ERROR;
    numbers.resize(count);
    for (int32_t& number : numbers)
        if (reader_.ReadValue(number) != IO_OK) return IO_ERROR;
    return IO_OK;
}

// The layers are read into a manager apart from the scene's, which takes them only when
// the whole file has been read.
IOResult SceneReader::ReadLayers() {
    const ILayerManager* layers = ip_.GetLayerManager();
    if (!layers) return IO_OK;
    layers_ = layers->LoadApart(&reader_);
    if (layers_) return IO_OK;
    Fail("the scene's layers are damaged: " + reader_.Error());
    return IO_ERROR;
}

IOResult SceneReader::ReadNodeLayers() {
    uint32_t count = 0;
    if (reader_.ReadCount(count, 2 * sizeof(int32_t)) != IO_OK) return IO_ERROR;
    nodeLayers_.resize(count);
    for (auto& [node, layer] : nodeLayers_)
        if (reader_.ReadValue(node) != IO_OK || reader_.ReadValue(layer) != IO_OK) return IO_ERROR;
    return IO_OK;
}

IOResult SceneReader::MakeObject(size_t index, uint32_t classIndex) {
    if (objects_[index] || classIndex >= classes_.size()) {
        Fail("object " + std::to_string(index + 1) + " names no class of the directory");
        return IO_ERROR;
    }
    const ClassKey& key = classes_[classIndex];
    Animatable* made = nullptr;
    if (int32_t(index + 1) == tracks_)
        made = new TrackViewNode;
    else if (key.superClass == BASENODE_CLASS_ID)
        made = new INode;
    else if (ClassDesc2* desc = ClassRegistry::Instance().Find(key.superClass, key.id))
        made = desc->Create(true);
    objects_[index] = dynamic_cast<ReferenceTarget*>(made);
    if (objects_[index]) return IO_OK;
    delete made;
    Fail("the scene uses a class this program does not know: superclass " + Hex(key.superClass) +
         ", class id (" + Hex(key.id.PartA()) + ", " + Hex(key.id.PartB()) + ")");
    return IO_ERROR;
}

// Every number must name an object (or be -1), and every slot list must fit its object.
bool SceneReader::CheckNumbers() {
    const auto valid = [this](const std::vector<int32_t>& numbers) {
        for (int32_t n : numbers)
            if (n < -1 || n > int32_t(objects_.size())) return false;
        return true;
    };
    if (!valid(root_) || !valid(selection_)) return Fail("the root or selection names no object");
    if (!CheckNodeLayers()) return Fail("a node is put on a layer the scene does not have");
    // The indirect references are not counted here: an object may size them from the
    // objects it refers to, which it has only once linked (see Link).
    for (size_t i = 0; i < objects_.size(); ++i) {
        const int refs = objects_[i]->NumRefs();
        if (!valid(slots_[i].refs) || !valid(slots_[i].indirect) ||
            slots_[i].refs.size() > size_t(std::max(0, refs)))
            return Fail("the references of object " + std::to_string(i + 1) + " (" +
                        objects_[i]->GetClassName().ToUtf8() + ") do not fit it");
    }
    if (const int32_t looping = LoopingObject())
        return Fail("object " + std::to_string(looping) + " (" +
                    ObjectOf(looping)->GetClassName().ToUtf8() + ") refers to itself in a loop");
    return true;
}

// Each membership names a node and a layer that was read, not the default one. A scene
// read without a layer manager keeps its nodes on the default layer.
bool SceneReader::CheckNodeLayers() const {
    if (!ip_.GetLayerManager()) return true;
    const int count = layers_ ? layers_->GetLayerCount() : 0;
    return std::all_of(nodeLayers_.begin(), nodeLayers_.end(), [&](const auto& member) {
        return NodeOf(member.first) && member.second >= 1 && member.second < count;
    });
}

// The number of an object that its references lead back to, or 0. Such an object's value
// would depend on itself, so nothing could ever evaluate it. Depth first, with a stack of
// its own: a file may chain more objects than the call stack can hold.
int32_t SceneReader::LoopingObject() const {
    enum : uint8_t { kUnseen, kOnPath, kDone };
    std::vector<uint8_t> state(objects_.size(), kUnseen);
    struct Step {
        size_t object, slot;
    };
    std::vector<Step> path;
    for (size_t start = 0; start < objects_.size(); ++start) {
        if (state[start] != kUnseen) continue;
        state[start] = kOnPath;
        path.push_back({start, 0});
        while (!path.empty()) {
            Step& step = path.back();
            const std::vector<int32_t>& refs = slots_[step.object].refs;
            if (step.slot == refs.size()) {
                state[step.object] = kDone;
                path.pop_back();
                continue;
            }
            const int32_t number = refs[step.slot++];
            if (number <= 0) continue;  // empty, or the root, which refers to nothing loaded
            const size_t next = size_t(number - 1);
            if (state[next] == kOnPath) return number;
            if (state[next] == kUnseen) {
                state[next] = kOnPath;
                path.push_back({next, 0});
            }
        }
    }
    return 0;
}

// References first, then the indirect ones, which an object may size from what it refers
// to (a weak reference owner from its parameter blocks); an indirect slot past the
// object's count is dropped, as SetIndirectReference does past the end.
void SceneReader::Link() {
    for (size_t i = 0; i < objects_.size(); ++i) {
        const Slots& slots = slots_[i];
        for (size_t s = 0; s < slots.refs.size(); ++s)
            RefSystem::Link(objects_[i], int(s), ObjectOf(slots.refs[s]));
    }
    for (size_t i = 0; i < objects_.size(); ++i) {
        const Slots& slots = slots_[i];
        auto* indirect = dynamic_cast<IIndirectReferenceMaker*>(objects_[i]);
        for (size_t s = 0; indirect && s < slots.indirect.size(); ++s)
            indirect->SetIndirectReference(int(s), ObjectOf(slots.indirect[s]));
    }
    reader_.ResolveBackpatches([this](int id) { return ObjectOf(id); });
    for (const auto& [node, layer] : nodeLayers_)
        if (layers_) NodeOf(node)->SetLayer(layers_->GetLayer(layer));
}

void SceneReader::Install() {
    BroadcastNotification(NOTIFY_FILE_PRE_OPEN);
    theHold.ClearUndo();
    ip_.GetScene().Clear();
    if (ILayerManager* layers = ip_.GetLayerManager()) {
        layers->Reset();
        if (layers_) layers->Adopt(std::move(layers_));
    }
    ip_.SetFrameRate(time_[3]);
    ip_.SetAnimRange(Interval(time_[1], time_[2]));
    ip_.SetTime(time_[0], false);
    INode* root = ip_.GetRootNode();
    for (int32_t n : root_)
        if (INode* node = NodeOf(n); node && !node->GetParentNode()) root->AttachChild(node, false);
    // Nodes that the file put nowhere (only a damaged or hand-made file has them) join the
    // root's children: no node lives outside the scene with children of its own.
    for (ReferenceTarget* object : objects_)
        if (auto* node = dynamic_cast<INode*>(object); node && !node->GetParentNode())
            root->AttachChild(node, false);
    InstallTracks();
    std::vector<INode*> selection;
    for (int32_t n : selection_)
        if (INode* node = NodeOf(n); node && node->GetParentNode()) selection.push_back(node);
    ip_.GetScene().Select(selection);
    DropOrphans();
    reader_.RunPostLoadCallbacks();
    BroadcastNotification(NOTIFY_FILE_POST_OPEN);
}

// Objects that nothing took (only a damaged or hand-made file has them) would live on
// unowned: they go. Nodes belong to the scene, containers to their owners; a track view
// node is like any other object here (the custom tracks holder has gone already). They
// are all found first: deleting one may delete what it referred to, but never another
// orphan, which nothing refers to.
void SceneReader::DropOrphans() {
    std::vector<ReferenceTarget*> orphans;
    for (ReferenceTarget* object : objects_) {
        auto* container = dynamic_cast<ICustAttribContainer*>(object);
        if (object && !object->HasDependents() && !dynamic_cast<INode*>(object) &&
            !(container && container->GetOwner()))
            orphans.push_back(object);
    }
    objects_.clear();
    for (ReferenceTarget* orphan : orphans) orphan->DeleteMe();
}

// The custom tracks read into a holder of their own move to the scene's.
void SceneReader::InstallTracks() {
    auto* loaded = dynamic_cast<TrackViewNode*>(ObjectOf(tracks_));
    if (!loaded) return;
    TrackViewNode* tracks = ip_.GetTrackViewRootNode();
    for (int i = 0; i < loaded->NumItems(); ++i)
        if (ReferenceTarget* track = loaded->GetTrack(i))
            tracks->AddController(track, loaded->GetName(i).data(), loaded->GetClassID(i));
    std::replace(objects_.begin(), objects_.end(), static_cast<ReferenceTarget*>(loaded),
                 static_cast<ReferenceTarget*>(nullptr));
    Delete(loaded);
}

// A failed read: the objects made so far have no references yet, so each goes alone.
void SceneReader::Discard() {
    for (auto it = objects_.rbegin(); it != objects_.rend(); ++it)
        if (*it) Delete(*it);
    objects_.clear();
}

// A custom tracks holder belongs to no one and so outlives DeleteMe; the reader's own goes
// when it has given its tracks away.
void SceneReader::Delete(ReferenceTarget* object) {
    if (dynamic_cast<TrackViewNode*>(object)) {
        object->DeleteAllRefsFromMe();
        delete object;
    } else {
        object->DeleteMe();
    }
}

ReferenceTarget* SceneReader::ObjectOf(int32_t number) const {
    if (number == 0) return ip_.GetRootNode();
    return number > 0 && size_t(number) <= objects_.size() ? objects_[size_t(number - 1)] : nullptr;
}

INode* SceneReader::NodeOf(int32_t number) const {
    return number > 0 ? dynamic_cast<INode*>(ObjectOf(number)) : nullptr;
}

bool SceneReader::Fail(const std::string& what) {
    if (error_.empty() && !what.empty()) error_ = what;
    return false;
}

}  // namespace host
