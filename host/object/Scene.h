#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/core/WStr.h"
#include "host/object/TrackViewNode.h"

namespace host {

class INode;
class Object;

// The scene graph behind the core interface: the root node and its tree, the nodes by
// handle, the selection in the order it was made, and the root's custom tracks. Node
// creation, deletion and selection are recorded when holding.
class Scene {
public:
    Scene() = default;
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    INode* Root();
    // Depth first from the root, names compared without regard to case.
    INode* FindByName(const wchar_t* name);
    INode* FindByHandle(uint32_t handle) const;
    // A new node under the root carrying obj and the default matrix controller.
    INode* CreateNode(Object* obj, const WStr& name);
    // Deletes the nodes; the children of each go to its parent, keeping their world
    // transforms with keepChildTM. The root and nodes out of the scene are skipped.
    int DeleteNodes(const std::vector<INode*>& nodes, bool keepChildTM);
    // base followed by the first three-digit number that no node's name has yet.
    WStr UniqueName(const WStr& base);
    // Called by a node of the scene whose name changed from old.
    void Renamed(INode* node, const WStr& old);
    // One unique name for each base, as UniqueName gives them one after the other, each
    // also differing from those before it: the names of nodes about to enter the scene
    // together.
    std::vector<WStr> UniqueNames(const std::vector<WStr>& bases);

    const std::vector<INode*>& Selection() const { return selection_; }
    // Replaces the selection, recorded when holding, and broadcasts the change.
    void Select(std::vector<INode*> nodes);

    TrackViewNode* TrackViewRoot() { return &trackViewRoot_; }
    // Called by nodes entering or leaving the scene.
    void Membership(INode* node, bool inScene);
    // Deletes every node but the root and empties the custom tracks, outside undo.
    void Clear();

private:
    class SelectionRestore;
    void ApplySelection(const std::vector<INode*>& nodes);
    template <typename Visit>
    bool Walk(INode* node, Visit visit);
    void AddName(const WStr& name);
    void RemoveName(const WStr& name);

    INode* root_ = nullptr;
    std::unordered_map<uint32_t, INode*> handles_;
    uint32_t nextHandle_ = 1;
    std::vector<INode*> selection_;
    TrackViewNode trackViewRoot_;
    // The names of the nodes in the scene, lower case, with how many nodes have each; and
    // for each base UniqueName was asked for, a number below which every name is taken.
    // Freeing a name forgets the numbers, so that the first free number is found again.
    std::unordered_map<std::wstring, int> names_;
    std::unordered_map<std::wstring, int> firstFree_;
};

}  // namespace host
