#pragma once

#include <vector>

#include "host/object/Interface.h"
#include "host/object/RemapDir.h"

namespace host {

// One Interface::CloneNodes operation: the originals in scene order, their clones made
// through one clone directory, then placed in the scene.
class NodeCloner {
public:
    NodeCloner(Interface& ip, CloneType cloneType) : ip_(ip), cloneType_(cloneType) {}
    NodeCloner(const NodeCloner&) = delete;
    NodeCloner& operator=(const NodeCloner&) = delete;

    // False, changing nothing, when any node is null, the root or out of the scene.
    bool Gather(INodeTab& nodes, bool expandHierarchies);
    // The clones, made and backpatched inside the open hold, then placed and moved by
    // offset. False when an object or controller could not be cloned: the caller
    // cancels the hold, then discards the clones.
    bool Run(const Point3& offset);
    void Discard();

    const std::vector<INode*>& Originals() const { return originals_; }
    const std::vector<INode*>& Clones() const { return clones_; }

private:
    // The original's object as cloneType wants it for its clone.
    ReferenceTarget* ObjectFor(INode* original, RemapDir& remap);
    bool CloneContents(RemapDir& remap);
    void Place(const Point3& offset);

    Interface& ip_;
    CloneType cloneType_;
    std::vector<INode*> originals_;  // parents before children
    std::vector<INode*> clones_;     // clones_[i] is the clone of originals_[i]
};

}  // namespace host
