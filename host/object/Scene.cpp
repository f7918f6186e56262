#include "host/object/Scene.h"

#include <algorithm>
#include <cwchar>
#include <string>

#include "host/object/Control.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Notifications.h"
#include "host/object/Object.h"

namespace host {

// The selection before and after one change; the nodes are kept alive with it.
class Scene::SelectionRestore : public RestoreObj {
public:
    SelectionRestore(Scene* scene, const std::vector<INode*>& before,
                     const std::vector<INode*>& after)
        : scene_(scene), before_(before), after_(after) {
        for (INode* n : before) pins_.emplace_back(n);
        for (INode* n : after) pins_.emplace_back(n);
    }
    void Restore(bool) override { scene_->ApplySelection(before_); }
    void Redo() override { scene_->ApplySelection(after_); }
    WStr Description() override { return WStr(L"Select"); }

private:
    Scene* scene_;
    std::vector<INode*> before_, after_;
    std::vector<TargetPin> pins_;
};

INode* Scene::Root() {
    if (!root_) {
        root_ = new INode;
        root_->isRoot_ = true;
        root_->inScene_ = true;
        root_->props_.name = WStr(L"Scene Root");
    }
    return root_;
}

template <typename Visit>
bool Scene::Walk(INode* node, Visit visit) {
    for (int i = 0; i < node->NumberOfChildren(); ++i) {
        INode* child = node->GetChildNode(i);
        if (visit(child) || Walk(child, visit)) return true;
    }
    return false;
}

INode* Scene::FindByName(const wchar_t* name) {
    if (!name) return nullptr;
    WStr wanted(name);
    wanted.toLower();
    INode* found = nullptr;
    Walk(Root(), [&](INode* node) {
        WStr own(node->GetName());
        if (!(own.toLower() == wanted)) return false;
        found = node;
        return true;
    });
    return found;
}

INode* Scene::FindByHandle(uint32_t handle) const {
    const auto it = handles_.find(handle);
    return it == handles_.end() ? nullptr : it->second;
}

namespace {

std::wstring LowerCase(const WStr& name) {
    WStr lower(name);
    return lower.toLower().data();
}

}  // namespace

WStr Scene::UniqueName(const WStr& base) {
    int& n = firstFree_[LowerCase(base)];
    for (n = std::max(n, 1);; ++n) {
        wchar_t digits[16];
        std::swprintf(digits, 16, L"%03d", n);
        WStr name = base + WStr(digits);
        if (!names_.count(LowerCase(name))) return name;
    }
}

std::vector<WStr> Scene::UniqueNames(const std::vector<WStr>& bases) {
    // Each name is held as taken while the next is chosen, and let go at the end: the
    // nodes take their names when they enter the scene.
    std::vector<WStr> names;
    for (const WStr& base : bases) {
        names.push_back(UniqueName(base));
        AddName(names.back());
    }
    for (const WStr& name : names) RemoveName(name);
    return names;
}

void Scene::Renamed(INode* node, const WStr& old) {
    if (!node->inScene_) return;
    RemoveName(old);
    AddName(node->props_.name);
}

void Scene::AddName(const WStr& name) {
    ++names_[LowerCase(name)];
}

void Scene::RemoveName(const WStr& name) {
    const auto it = names_.find(LowerCase(name));
    if (it == names_.end() || --it->second > 0) return;
    names_.erase(it);
    firstFree_.clear();
}

INode* Scene::CreateNode(Object* obj, const WStr& name) {
    auto* node = new INode;
    node->props_.name = name;
    if (Control* tm = NewDefaultMatrix3Controller()) node->ReplaceReference(INode::TM_REF, tm);
    node->ReplaceReference(INode::OBJ_REF, obj);
    INode::Relink(node, Root());
    return node;
}

int Scene::DeleteNodes(const std::vector<INode*>& nodes, bool keepChildTM) {
    int deleted = 0;
    for (INode* node : nodes) {
        if (!node || node->isRoot_ || !node->inScene_) continue;
        while (node->NumberOfChildren() > 0)
            node->parent_->AttachChild(node->GetChildNode(0), keepChildTM);
        if (node->selected_) {
            std::vector<INode*> rest = selection_;
            std::erase(rest, node);
            Select(std::move(rest));
        }
        const TargetPin keep(node);
        INode::Relink(node, nullptr);
        node->DeleteMe();
        ++deleted;
    }
    return deleted;
}

void Scene::Select(std::vector<INode*> nodes) {
    std::erase_if(nodes, [](INode* n) { return !n || !n->inScene_ || n->isRoot_; });
    // Each node once, where it first appears.
    std::vector<INode*> unique;
    for (INode* n : nodes)
        if (std::find(unique.begin(), unique.end(), n) == unique.end()) unique.push_back(n);
    if (unique == selection_) return;
    if (theHold.Holding()) theHold.Put(new SelectionRestore(this, selection_, unique));
    ApplySelection(unique);
}

void Scene::ApplySelection(const std::vector<INode*>& nodes) {
    for (INode* n : selection_) n->selected_ = false;
    selection_ = nodes;
    for (INode* n : selection_) n->selected_ = true;
    BroadcastNotification(NOTIFY_SELECTIONSET_CHANGED);
}

void Scene::Membership(INode* node, bool inScene) {
    node->inScene_ = inScene;
    if (inScene)
        AddName(node->props_.name);
    else
        RemoveName(node->props_.name);
    if (inScene) {
        // A node without a handle, or with one taken (a scene file may have either), gets
        // the next free one: handles kept from a file need not have moved nextHandle_ on.
        if (node->handle_ == 0 || handles_.count(node->handle_)) {
            while (handles_.count(nextHandle_)) ++nextHandle_;
            node->handle_ = nextHandle_++;
        }
        handles_[node->handle_] = node;
    } else {
        handles_.erase(node->handle_);
        node->HandOverToReferences();
    }
    for (INode* child : node->children_) Membership(child, inScene);
}

void Scene::Clear() {
    theHold.Suspend();
    for (INode* n : selection_) n->selected_ = false;
    selection_.clear();
    INode* root = Root();
    while (root->NumberOfChildren() > 0) {
        INode* top = root->GetChildNode(root->NumberOfChildren() - 1);
        // Depth first: the deepest last child goes first.
        while (top->NumberOfChildren() > 0) top = top->GetChildNode(top->NumberOfChildren() - 1);
        const TargetPin keep(top);
        top->Link(nullptr, -1);
        top->DeleteMe();
    }
    trackViewRoot_.Clear();
    nextHandle_ = 1;
    names_.clear();
    firstFree_.clear();
    theHold.Resume();
}

}  // namespace host
