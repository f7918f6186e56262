#include "host/io/SceneWriter.h"

#include <algorithm>

#include "host/io/SceneChunkIds.h"
#include "host/object/ICustAttribContainer.h"
#include "host/object/IIndirectReferenceMaker.h"
#include "host/object/ILayerManager.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"

namespace host {

namespace {

std::vector<ReferenceTarget*> Slots(ReferenceMaker* maker) {
    std::vector<ReferenceTarget*> slots(size_t(std::max(0, maker->NumRefs())));
    for (size_t i = 0; i < slots.size(); ++i) slots[i] = maker->GetReference(int(i));
    return slots;
}

std::vector<ReferenceTarget*> IndirectSlots(ReferenceMaker* maker) {
    auto* indirect = dynamic_cast<IIndirectReferenceMaker*>(maker);
    std::vector<ReferenceTarget*> slots;
    for (int i = 0; indirect && i < indirect->NumIndirectRefs(); ++i)
        slots.push_back(indirect->GetIndirectReference(i));
    return slots;
}

std::vector<ReferenceTarget*> Children(INode* node) {
    std::vector<ReferenceTarget*> children;
    for (int i = 0; i < node->NumberOfChildren(); ++i) children.push_back(node->GetChildNode(i));
    return children;
}

}  // namespace

std::vector<uint8_t> SceneWriter::Write(Interface& ip, std::string* error) {
    SceneWriter w(ip);
    w.Gather();
    size_t written = 0;
    w.ChunkWriter::Write(chunks::kSceneMagic, sizeof(chunks::kSceneMagic), &written);
    w.WriteValue(chunks::kSceneVersion);
    w.WriteTime();
    w.WriteClasses();
    w.WriteChunk(chunks::SCENE_TRACKS, int32_t(w.GetRefID(ip.GetTrackViewRootNode())));
    w.BeginChunk(chunks::SCENE_OBJECTS);
    for (ReferenceTarget* object : w.objects_) w.WriteObject(object);
    w.EndChunk();
    w.WriteNumbers(chunks::SCENE_ROOT, Children(ip.GetRootNode()));
    const auto& selection = ip.GetScene().Selection();
    w.WriteNumbers(chunks::SCENE_SELECTION, {selection.begin(), selection.end()});
    w.WriteLayers();
    if (w.failure_.empty()) return w.Bytes();
    if (error) *error = w.failure_;
    return {};
}

int SceneWriter::GetRefID(void* object) {
    const auto it = numbers_.find(object);
    return it == numbers_.end() ? -1 : it->second;
}

// Numbers every object reachable from the root and the custom tracks, depth first with
// a stack of its own (a hierarchy may be deeper than the call stack allows).
void SceneWriter::Gather() {
    INode* root = ip_.GetRootNode();
    numbers_[root] = 0;
    std::vector<ReferenceTarget*> pending;
    Meet(ip_.GetTrackViewRootNode(), pending);
    for (ReferenceTarget* child : Children(root)) Meet(child, pending);
    while (!pending.empty()) {
        ReferenceTarget* object = pending.back();
        pending.pop_back();
        for (ReferenceTarget* target : Slots(object)) Meet(target, pending);
        for (ReferenceTarget* target : IndirectSlots(object)) Meet(target, pending);
        Meet(object->GetCustAttribContainer(), pending);
        if (auto* node = dynamic_cast<INode*>(object))
            for (ReferenceTarget* child : Children(node)) Meet(child, pending);
    }
    for (ReferenceTarget* object : objects_) ClassIndex(object);
}

void SceneWriter::Meet(ReferenceTarget* target, std::vector<ReferenceTarget*>& pending) {
    if (!target || numbers_.count(target)) return;
    objects_.push_back(target);
    numbers_[target] = int(objects_.size());
    pending.push_back(target);
}

void SceneWriter::WriteTime() {
    const Interval range = ip_.GetAnimRange();
    BeginChunk(chunks::SCENE_TIME);
    for (int32_t value : {ip_.GetTime(), range.Start(), range.End(), ip_.GetFrameRate()})
        WriteValue(value);
    EndChunk();
}

void SceneWriter::WriteClasses() {
    BeginChunk(chunks::SCENE_CLASSES);
    WriteValue(uint32_t(classes_.size()));
    for (const ClassKey& key : classes_) {
        WriteValue(key.superClass);
        WriteValue(key.id.PartA());
        WriteValue(key.id.PartB());
    }
    EndChunk();
}

// The layers, when there are more than the default one, and then the nodes that are on
// one of them, in the order of their numbers.
void SceneWriter::WriteLayers() {
    ILayerManager* layers = ip_.GetLayerManager();
    if (!layers || layers->GetLayerCount() < 2) return;
    BeginChunk(chunks::SCENE_LAYERS);
    layers->Save(this);
    EndChunk();
    std::unordered_map<const ILayer*, int32_t> indices;
    for (int i = 1; i < layers->GetLayerCount(); ++i) indices[layers->GetLayer(i)] = i;
    std::vector<std::pair<int32_t, int32_t>> members;
    for (size_t n = 0; n < objects_.size(); ++n)
        if (auto* node = dynamic_cast<INode*>(objects_[n]))
            if (const auto it = indices.find(node->GetLayer()); it != indices.end())
                members.emplace_back(int32_t(n + 1), it->second);
    if (members.empty()) return;
    BeginChunk(chunks::SCENE_NODE_LAYERS);
    WriteValue(uint32_t(members.size()));
    for (const auto& [node, layer] : members) {
        WriteValue(node);
        WriteValue(layer);
    }
    EndChunk();
}

void SceneWriter::WriteObject(ReferenceTarget* object) {
    BeginChunk(chunks::SCENE_OBJECT);
    WriteChunk(chunks::OBJECT_CLASS, ClassIndex(object));
    BeginChunk(chunks::OBJECT_DATA);
    if (object->Save(this) != IO_OK && failure_.empty())
        failure_ = "object " + std::to_string(GetRefID(object)) + " (" +
                   object->GetClassName().ToUtf8() + ") could not save itself";
    EndChunk();
    WriteNumbers(chunks::OBJECT_REFS, Slots(object));
    const std::vector<ReferenceTarget*> indirect = IndirectSlots(object);
    if (!indirect.empty()) WriteNumbers(chunks::OBJECT_INDIRECT, indirect);
    EndChunk();
}

void SceneWriter::WriteNumbers(uint16_t id, const std::vector<ReferenceTarget*>& objects) {
    BeginChunk(id);
    WriteValue(uint32_t(objects.size()));
    for (ReferenceTarget* object : objects) WriteValue(int32_t(GetRefID(object)));
    EndChunk();
}

uint32_t SceneWriter::ClassIndex(ReferenceTarget* object) {
    const ClassKey key{object->SuperClassID(), object->ClassID()};
    const auto it = std::find(classes_.begin(), classes_.end(), key);
    if (it != classes_.end()) return uint32_t(it - classes_.begin());
    classes_.push_back(key);
    return uint32_t(classes_.size() - 1);
}

}  // namespace host
