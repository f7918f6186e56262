#include <sstream>
#include <string>

#include "host/core/Utf8.h"
#include "host/object/Animate.h"
#include "host/object/Notifications.h"
#include "host/object/TrackViewNode.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {
namespace {

using SceneUndo = SceneTest;

void Describe(INode* node, std::ostringstream& out) {
    out << node->GetHandle() << ' ' << Utf8FromWide(node->GetName()) << " parent "
        << (node->GetParentNode() ? node->GetParentNode()->GetHandle() : 0) << " sel "
        << node->Selected() << " hide " << node->IsHidden() << " frozen " << node->IsFrozen()
        << " wire " << node->GetWireColor() << " lock " << node->GetTransformLock(0, 1) << " vis "
        << node->GetVisibility(0);
    for (TimeValue t : {0, 1000}) {
        const Matrix3 tm = node->GetNodeTM(t);
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 3; ++c) out << ' ' << tm.GetRow(r)[c];
    }
    out << '\n';
    for (int i = 0; i < node->NumberOfChildren(); ++i) Describe(node->GetChildNode(i), out);
}

// The whole scene as text: every node in tree order with its place, properties and
// transforms at two times, the selection in order, and the custom tracks.
std::string Snapshot(Interface* ip) {
    std::ostringstream out;
    Describe(ip->GetRootNode(), out);
    out << "selection";
    for (int i = 0; i < ip->GetSelNodeCount(); ++i) out << ' ' << ip->GetSelNode(i)->GetHandle();
    TrackViewNode* tracks = ip->GetTrackViewRootNode();
    for (int i = 0; i < tracks->NumItems(); ++i)
        out << " track " << Utf8FromWide(tracks->GetName(i).data());
    return out.str();
}

std::vector<INode*> Nodes(INode* root) {
    std::vector<INode*> all;
    for (int i = 0; i < root->NumberOfChildren(); ++i) {
        all.push_back(root->GetChildNode(i));
        const std::vector<INode*> below = Nodes(root->GetChildNode(i));
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
}

// One random user-level change of the scene.
void RandomEdit(Interface* ip, std::mt19937& rng, int step) {
    auto pick = [&rng](size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(rng); };
    const std::vector<INode*> nodes = Nodes(ip->GetRootNode());
    if (nodes.empty() || pick(6) == 0) {
        ip->CreateObjectNode(nullptr);
        return;
    }
    INode* a = nodes[pick(nodes.size())];
    INode* b = nodes[pick(nodes.size())];
    const TimeValue t = TimeValue(pick(3) * 500);
    switch (pick(10)) {
        case 0:
            ip->DeleteNode(a);
            break;
        case 1:
            b->AttachChild(a, pick(2) == 0);
            break;
        case 2:
            a->SetName((L"n" + std::to_wstring(step)).c_str());
            break;
        case 3:
            ip->SelectNode(a, pick(2) == 0);
            break;
        case 4: {
            INodeTab tab;
            tab.Append(1, &a);
            ip->SelectNodeTab(tab, pick(2) == 0);
            break;
        }
        case 5:
            if (pick(2)) AnimateOn();
            a->SetNodeTM(
                t, RotateYMatrix(float(step) * 0.1f) * TransMatrix(Point3(float(step), 1, 2)));
            AnimateOff();
            break;
        case 6:
            a->Move(t, Matrix3(), Point3(1, -2, float(step % 5)));
            break;
        case 7:
            a->Hide(!a->IsHidden());
            a->SetWireColor(RGB(step, 2 * step, 3));
            a->SetTransformLock(0, 1, !a->GetTransformLock(0, 1));
            break;
        case 8:
            a->Detach(t, pick(2) == 0);
            break;
        case 9: {
            TrackViewNode* tracks = ip->GetTrackViewRootNode();
            if (tracks->NumItems() > 0 && pick(2) == 0)
                tracks->RemoveItem(int(pick(size_t(tracks->NumItems()))));
            else
                tracks->AddController(NewDefaultFloatController(), L"custom", Class_ID(7, 7));
            break;
        }
    }
}

// Random node, hierarchy, selection, transform and custom-track changes, one undo
// entry each; undoing them all walks back through every state exactly, and redoing
// them all forward again.
TEST_F(SceneUndo, RandomSceneEditsUndoAndRedoExactly) {
    std::mt19937 rng(31);
    std::vector<std::string> states = {Snapshot(ip)};
    int entries = 0;
    for (int step = 0; step < 300; ++step) {
        const int before = theHold.NumUndoEntries();
        theHold.Begin();
        RandomEdit(ip, rng, step);
        theHold.Accept(WStr(L"edit"));
        if (theHold.NumUndoEntries() == before) continue;  // nothing changed
        ++entries;
        states.push_back(Snapshot(ip));
    }
    ASSERT_GT(entries, 200);
    for (int i = entries - 1; i >= 0; --i) {
        ASSERT_TRUE(theHold.Undo());
        ASSERT_EQ(Snapshot(ip), states[size_t(i)]) << "undo to state " << i;
    }
    for (int i = 1; i <= entries; ++i) {
        ASSERT_TRUE(theHold.Redo());
        ASSERT_EQ(Snapshot(ip), states[size_t(i)]) << "redo to state " << i;
    }
}

int selectionBroadcasts = 0;
void CountSelection(void*, NotifyInfo*) {
    ++selectionBroadcasts;
}

// Deleting a node hands its children to its parent, keeps their place, tells those who
// refer to it, and takes it out of the selection and the lookups.
TEST_F(SceneUndo, DeletionKeepsChildrenAndClearsLookups) {
    RegisterNotification(CountSelection, nullptr, NOTIFY_SELECTIONSET_CHANGED);
    INode* top = ip->CreateObjectNode(nullptr, L"Top");
    INode* mid = ip->CreateObjectNode(nullptr, L"Mid");
    INode* leaf = ip->CreateObjectNode(nullptr, L"Leaf");
    top->SetNodeTM(0, TransMatrix(Point3(5, 0, 0)));
    top->AttachChild(mid, false);
    mid->AttachChild(leaf, false);
    mid->SetNodeTM(0, RotateZMatrix(1.0f) * TransMatrix(Point3(1, 1, 0)));
    const Matrix3 leafWorld = leaf->GetNodeTM(0);
    ip->SelectNode(mid);
    ip->SelectNode(leaf, false);
    EXPECT_EQ(selectionBroadcasts, 2);
    const uint32_t handle = mid->GetHandle();
    EXPECT_EQ(ip->GetINodeByName(L"mID"), mid) << "names match without case";

    theHold.Begin();
    ip->DeleteNode(mid);
    theHold.Accept(WStr(L"Delete"));
    EXPECT_EQ(leaf->GetParentNode(), top);
    EXPECT_TRUE(leaf->GetNodeTM(0).Equals(leafWorld, 1e-5f));
    EXPECT_EQ(ip->GetSelNodeCount(), 1);
    EXPECT_EQ(ip->GetSelNode(0), leaf);
    EXPECT_EQ(ip->GetINodeByHandle(handle), nullptr);
    EXPECT_EQ(ip->GetINodeByName(L"Mid"), nullptr);

    ASSERT_TRUE(theHold.Undo());
    INode* back = ip->GetINodeByHandle(handle);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->GetChildNode(0), leaf);
    EXPECT_EQ(ip->GetSelNode(0), back);
    EXPECT_EQ(ip->GetSelNode(1), leaf);
    UnRegisterNotification(CountSelection, nullptr, NOTIFY_SELECTIONSET_CHANGED);
}

// A new node's name takes the first number no node has, whatever deletions, renames
// and their undos did before.
TEST_F(SceneUndo, NewNamesTakeTheFirstFreeNumber) {
    auto make = [this] { return WStr(ip->CreateObjectNode(nullptr)->GetName()); };
    for (int i = 0; i < 3; ++i) make();
    INode* second = ip->GetINodeByName(L"Node002");
    theHold.Begin();
    ip->DeleteNode(second);
    theHold.Accept(WStr(L"Delete"));
    EXPECT_TRUE(make() == WStr(L"Node002"));
    ip->GetINodeByName(L"Node001")->SetName(L"Renamed");
    EXPECT_TRUE(make() == WStr(L"Node001"));
    ip->GetINodeByName(L"Node003")->SetName(L"NODE005");
    EXPECT_TRUE(make() == WStr(L"Node003")) << "the name freed by a rename";
    EXPECT_TRUE(make() == WStr(L"Node004"));
    EXPECT_TRUE(make() == WStr(L"Node006")) << "names match without case";
    ASSERT_TRUE(theHold.Undo());  // the deleted node is back with its name
    EXPECT_TRUE(make() == WStr(L"Node007"));
}

}  // namespace
}  // namespace host::test
