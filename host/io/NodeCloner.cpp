#include "host/io/NodeCloner.h"

#include <cwctype>
#include <unordered_map>
#include <unordered_set>

#include "host/io/CloneRemapDir.h"
#include "host/object/Control.h"
#include "host/object/Hold.h"
#include "host/object/IDerivedObject.h"
#include "host/object/Mtl.h"
#include "host/object/Object.h"

namespace host {

namespace {

// The name without the number that a unique name ends with: "Bone012" gives "Bone".
WStr NameBase(const wchar_t* name) {
    std::wstring base(name ? name : L"");
    while (!base.empty() && std::iswdigit(wint_t(base.back()))) base.pop_back();
    return WStr(base.empty() ? L"Node" : base.c_str());
}

// Every node under node, depth first, parents before children.
template <typename Visit>
void WalkTree(INode* node, Visit visit) {
    for (int i = 0; i < node->NumberOfChildren(); ++i) {
        INode* child = node->GetChildNode(i);
        visit(child);
        WalkTree(child, visit);
    }
}

}  // namespace

bool Interface::CloneNodes(INodeTab& nodes, const Point3& offset, bool expandHierarchies,
                           CloneType cloneType, INodeTab* resultSource, INodeTab* resultTarget) {
    if (cloneType == NODE_NONE) return false;
    NodeCloner cloner(*this, cloneType);
    if (!cloner.Gather(nodes, expandHierarchies)) return false;
    theHold.Begin();
    if (!cloner.Run(offset)) {
        theHold.Cancel();
        cloner.Discard();
        return false;
    }
    theHold.Accept(WStr(L"Clone"));
    for (size_t i = 0; i < cloner.Originals().size(); ++i) {
        INode* original = cloner.Originals()[i];
        INode* clone = cloner.Clones()[i];
        if (resultSource) resultSource->Append(1, &original);
        if (resultTarget) resultTarget->Append(1, &clone);
    }
    RedrawViews(time_);
    return true;
}

bool NodeCloner::Gather(INodeTab& nodes, bool expandHierarchies) {
    std::unordered_set<INode*> wanted;
    for (INode* node : nodes) {
        if (!node || node->IsRootNode() || ip_.GetINodeByHandle(node->GetHandle()) != node)
            return false;
        wanted.insert(node);
    }
    if (wanted.empty()) return false;
    // Scene order puts every parent before its children, whatever order the list has.
    WalkTree(ip_.GetRootNode(), [&](INode* node) {
        const bool underWanted =
            expandHierarchies && node->GetParentNode() && wanted.count(node->GetParentNode());
        if (underWanted) wanted.insert(node);
        if (wanted.count(node)) originals_.push_back(node);
    });
    return true;
}

bool NodeCloner::Run(const Point3& offset) {
    RemapDir* remap = NewRemapDir();
    // Every node's clone is in the directory before anything is cloned, so that what
    // refers to a cloned node finds its clone whichever is cloned first.
    for (INode* original : originals_) {
        clones_.push_back(original->CloneProperties());
        remap->AddEntry(original, clones_.back());
    }
    const bool cloned = CloneContents(*remap);
    if (cloned) remap->Backpatch();
    remap->DeleteThis();
    if (!cloned) return false;
    Place(offset);
    return true;
}

ReferenceTarget* NodeCloner::ObjectFor(INode* original, RemapDir& remap) {
    Object* object = original->GetObjectRef();
    if (!object) return nullptr;
    switch (cloneType_) {
        case NODE_INSTANCE:
            return object;
        case NODE_REFERENCE:
            return CreateDerivedObject(object);
        default:
            return remap.CloneRef(object);
    }
}

bool NodeCloner::CloneContents(RemapDir& remap) {
    bool complete = true;
    for (size_t i = 0; i < originals_.size(); ++i) {
        INode* original = originals_[i];
        INode* clone = clones_[i];
        // Whatever was cloned goes into the clone, so that discarding it frees all.
        ReferenceTarget* tm = remap.CloneRef(original->GetTMController());
        ReferenceTarget* object = ObjectFor(original, remap);
        ReferenceTarget* vis = remap.CloneRef(original->GetVisController());
        clone->ReplaceReference(INode::TM_REF, tm);
        clone->ReplaceReference(INode::OBJ_REF, object);
        clone->ReplaceReference(INode::VIS_REF, vis);
        clone->ReplaceReference(INode::MTL_REF, original->GetMtl());
        complete = complete && (tm || !original->GetTMController()) &&
                   (object || !original->GetObjectRef()) && (vis || !original->GetVisController());
    }
    return complete;
}

void NodeCloner::Place(const Point3& offset) {
    const TimeValue t = ip_.GetTime();
    std::unordered_map<INode*, INode*> cloneOf;
    std::vector<WStr> bases;
    for (size_t i = 0; i < originals_.size(); ++i) {
        cloneOf[originals_[i]] = clones_[i];
        bases.push_back(NameBase(originals_[i]->GetName()));
    }
    const std::vector<WStr> names = ip_.GetScene().UniqueNames(bases);
    for (size_t i = 0; i < originals_.size(); ++i) {
        INode* parent = originals_[i]->GetParentNode();
        const auto cloned = cloneOf.find(parent);
        const bool top = cloned == cloneOf.end();
        INode* clone = clones_[i];
        clone->SetName(names[i].data());
        (top ? parent : cloned->second)->AttachChild(clone, false);
        if (top && !(offset == Point3())) clone->Move(t, Matrix3(), offset);
    }
}

void NodeCloner::Discard() {
    // Never placed, and the hold's cancel took back the references they got.
    for (INode* clone : clones_) clone->DeleteMe();
    clones_.clear();
}

}  // namespace host
